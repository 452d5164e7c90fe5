#include "platform/linux/x11/XcbConnection.h"

namespace kestrio {

namespace {

constexpr std::array<const char*, static_cast<std::size_t>(XAtom::count)> atomNames = {
    "_NET_CLIENT_LIST_STACKING",
    "_NET_CURRENT_DESKTOP",
    "_NET_FRAME_EXTENTS",
    "_NET_WM_DESKTOP",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "_NET_WM_STATE",
    "_NET_WM_STATE_ABOVE",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU",
    "_NET_WM_WINDOW_TYPE_MENU",
    "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_WINDOW_TYPE_SPLASH",
    "_NET_WM_WINDOW_TYPE_TOOLTIP",
    "_GTK_FRAME_EXTENTS",
    // The number of the screen follows.
    "_NET_WM_CM_S",
    "_NET_SYSTEM_TRAY_S",
};

}  // namespace

XcbConnection::~XcbConnection() {
    if (handle_) xcb_disconnect(handle_);
}

bool XcbConnection::open() {
    if (handle_ && !xcb_connection_has_error(handle_)) return true;
    if (handle_) xcb_disconnect(std::exchange(handle_, nullptr));
    hasAtoms_ = false;
    int number = 0;
    xcb_connection_t* handle = xcb_connect(nullptr, &number);
    if (xcb_connection_has_error(handle)) {
        xcb_disconnect(handle);
        return false;
    }
    handle_ = handle;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(handle_));
    while (number-- > 0 && screens.rem > 1)
        xcb_screen_next(&screens);
    screen_ = screens.data;
    return true;
}

bool XcbConnection::hasExtension(xcb_extension_t* extension) const {
    const auto* data = xcb_get_extension_data(handle_, extension);
    return data && data->present;
}

xcb_atom_t XcbConnection::atom(XAtom which) {
    if (!hasAtoms_) internAtoms();
    return atoms_[static_cast<std::size_t>(which)];
}

void XcbConnection::internAtoms() {
    int number = 0;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(handle_));
    while (screens.rem > 1 && screens.data != screen_) {
        xcb_screen_next(&screens);
        ++number;
    }
    std::array<xcb_intern_atom_cookie_t, atomNames.size()> cookies;
    for (std::size_t i = 0; i < atomNames.size(); ++i) {
        QByteArray name = atomNames[i];
        if (i >= static_cast<std::size_t>(XAtom::compositingManager))
            name += QByteArray::number(number);
        cookies[i] = xcb_intern_atom(handle_, false, static_cast<std::uint16_t>(name.size()),
                                     name.constData());
    }
    for (std::size_t i = 0; i < atomNames.size(); ++i) {
        const XcbReply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(handle_, cookies[i], nullptr));
        atoms_[i] = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
    hasAtoms_ = true;
}

xcb_get_property_cookie_t XcbConnection::ask(xcb_window_t window, xcb_atom_t property,
                                             std::uint32_t length) const {
    return xcb_get_property(handle_, false, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, length);
}

std::vector<std::uint32_t> XcbConnection::values(xcb_get_property_cookie_t cookie) const {
    const XcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(handle_, cookie, nullptr));
    constexpr int unitBits = 32;
    if (!reply || reply->format != unitBits) return {};
    const auto* units = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {units, units + reply->value_len};
}

QByteArray XcbConnection::text(xcb_get_property_cookie_t cookie) const {
    const XcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(handle_, cookie, nullptr));
    constexpr int byteBits = 8;
    if (!reply || reply->format != byteBits) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<qsizetype>(reply->value_len)};
}

bool XcbConnection::isOwned(XAtom selection) {
    const XcbReply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        handle_, xcb_get_selection_owner(handle_, atom(selection)), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

void XcbConnection::dropEvents() const {
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(handle_)}) {
    }
}

}  // namespace kestrio
