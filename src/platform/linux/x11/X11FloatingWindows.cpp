#include "platform/linux/x11/X11FloatingWindows.h"

#include <xcb/xcb.h>
#include <QGuiApplication>
#include <QRegion>
#include <QWindow>
#include <array>
#include <cstdlib>
#include <memory>

namespace kestrio {

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

xcb_connection_t* connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* connection, const char* name) {
    const auto length = static_cast<std::uint16_t>(qstrlen(name));
    const std::unique_ptr<xcb_intern_atom_reply_t, FreeReply> reply(
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, length, name), nullptr));
    return reply ? reply->atom : XCB_ATOM_NONE;
}

template <std::size_t count>
void setProperty(QWindow& window, const char* name, xcb_atom_t type,
                 const std::array<std::uint32_t, count>& values) {
    xcb_connection_t* to = connection();
    xcb_change_property(to, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                        atom(to, name), type, 32, count, values.data());
}

}  // namespace

bool X11FloatingWindows::supportsTranslucency() const {
    xcb_connection_t* to = connection();
    if (!to) return false;
    // Desktops with several X screens are long gone; a compositor owns the selection of the first.
    const std::unique_ptr<xcb_get_selection_owner_reply_t, FreeReply> owner(
        xcb_get_selection_owner_reply(to, xcb_get_selection_owner(to, atom(to, "_NET_WM_CM_S0")),
                                      nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

void X11FloatingWindows::prepare(QWindow& window) {
    if (!connection()) return;
    window.create();
    constexpr std::uint32_t allDesktops = 0xFFFFFFFF;
    setProperty<1>(window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {allDesktops});
    // A user time of zero asks not to be given the focus.
    setProperty<1>(window, "_NET_WM_USER_TIME", XCB_ATOM_CARDINAL, {0});
    // Kept by Qt, which adds its own states as it shows the window.
    setProperty<2>(window, "_NET_WM_STATE", XCB_ATOM_ATOM,
                   {atom(connection(), "_NET_WM_STATE_SKIP_TASKBAR"),
                    atom(connection(), "_NET_WM_STATE_SKIP_PAGER")});
}

void X11FloatingWindows::roundCorners(QWindow& window, double radius) {
    const QRect frame(QPoint(), window.size());
    const int side = static_cast<int>(2 * radius);
    QRegion shape(frame.adjusted(side / 2, 0, -side / 2, 0));
    shape += QRegion(frame.adjusted(0, side / 2, 0, -side / 2));
    for (const QPoint& corner : {frame.topLeft(), frame.topRight() - QPoint(side - 1, 0),
                                 frame.bottomLeft() - QPoint(0, side - 1),
                                 frame.bottomRight() - QPoint(side - 1, side - 1)})
        shape += QRegion(QRect(corner, QSize(side, side)), QRegion::Ellipse);
    window.setMask(shape);
}

}  // namespace kestrio
