#pragma once

#include <QByteArray>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

namespace kestrio {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

/// What the X server answered; null where it answered with an error.
template <typename T>
using XcbReply = std::unique_ptr<T, FreeMemory>;

/// The atoms that the services name.
enum class XAtom {
    netClientListStacking,
    netCurrentDesktop,
    netFrameExtents,
    netWmDesktop,
    netWmName,
    netWmPid,
    netWmState,
    netWmStateAbove,
    netWmStateHidden,
    netWmWindowType,
    netWmWindowTypeDesktop,
    netWmWindowTypeDock,
    netWmWindowTypeDropdownMenu,
    netWmWindowTypeMenu,
    netWmWindowTypeNotification,
    netWmWindowTypePopupMenu,
    netWmWindowTypeSplash,
    netWmWindowTypeTooltip,
    gtkFrameExtents,
    // Selections that concern the screen that this connects to.
    compositingManager,
    systemTray,
    count,
};

/// A connection to the X server of $DISPLAY beside Qt's own, opened when it is first needed. Errors
/// of requests end with the request. For one thread at a time.
class XcbConnection {
  public:
    XcbConnection() = default;
    ~XcbConnection();

    XcbConnection(const XcbConnection&) = delete;
    XcbConnection& operator=(const XcbConnection&) = delete;

    /// Opens it unless it is open; false where there is no such server or it has gone.
    bool open();

    // Everything below needs an open connection.
    xcb_connection_t* handle() const { return handle_; }
    const xcb_screen_t& screen() const { return *screen_; }
    bool hasExtension(xcb_extension_t* extension) const;
    xcb_atom_t atom(XAtom which);
    /// Sends a request for up to `length` 32-bit units of a property.
    xcb_get_property_cookie_t ask(xcb_window_t window, xcb_atom_t property,
                                  std::uint32_t length = 1024) const;
    xcb_get_property_cookie_t ask(xcb_window_t window, XAtom property) {
        return ask(window, atom(property));
    }
    /// Whether somebody has taken on what the selection stands for.
    bool isOwned(XAtom selection);
    /// The units of a property that holds 32-bit values; empty where it is missing or another kind.
    std::vector<std::uint32_t> values(xcb_get_property_cookie_t cookie) const;
    /// The bytes of a property that holds text; empty where it is missing or another kind.
    QByteArray text(xcb_get_property_cookie_t cookie) const;
    /// Throws away the events that have come, errors of earlier requests among them. Needed now and
    /// then where nobody reads them, since they are kept.
    void dropEvents() const;

  private:
    void internAtoms();

    xcb_connection_t* handle_ = nullptr;
    const xcb_screen_t* screen_ = nullptr;
    std::array<xcb_atom_t, static_cast<std::size_t>(XAtom::count)> atoms_{};
    bool hasAtoms_ = false;
};

}  // namespace kestrio
