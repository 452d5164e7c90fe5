#include "platform/linux/x11/X11ScreenPermission.h"

#include "core/Localisation.h"

#include <cstring>

namespace kestrio {

bool X11ScreenPermission::preflight() const {
    if (!connection_->open()) return false;
    // An X server within a Wayland desktop says so by an extension of this name, and older ones are
    // known by the session.
    constexpr const char* name = "XWAYLAND";
    const XcbReply<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(
        connection_->handle(),
        xcb_query_extension(connection_->handle(), static_cast<std::uint16_t>(std::strlen(name)),
                            name),
        nullptr));
    const bool isWithinWayland =
        (reply && reply->present) || (qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland" &&
                                      !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"));
    return reply && !isWithinWayland;
}

QString X11ScreenPermission::obstacle() const {
    return Kestrio::tr(
        "This version of Kestrio captures the screen of X11 sessions, and this is a Wayland "
        "session. "
        "To capture, choose an X11 session when you log in.\n\n"
        "Everything else works here too: take a screenshot with the desktop's own tool, then open "
        "it "
        "with “Paste from Clipboard” or “Import Image”, or with “kestrio edit” and "
        "“kestrio render” on the command line.");
}

}  // namespace kestrio
