#include "platform/linux/x11/SelectionOwner.h"

#include "platform/linux/x11/XcbConnection.h"

#include <QGuiApplication>
#include <cstring>

namespace kestrio {

namespace {

xcb_connection_t* qtConnection() {
    auto* application =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return application ? application->connection() : nullptr;
}

xcb_atom_t atomNamed(xcb_connection_t* connection, const char* name) {
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, false, static_cast<std::uint16_t>(std::strlen(name)), name),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace

bool hasSelections() {
    return qtConnection() != nullptr;
}

std::uint32_t ownerOfSelection(const char* selection) {
    xcb_connection_t* connection = qtConnection();
    if (!connection) return XCB_WINDOW_NONE;
    const xcb_atom_t atom = atomNamed(connection, selection);
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom), nullptr));
    return reply ? reply->owner : std::uint32_t{XCB_WINDOW_NONE};
}

// Qt watches the properties of the root window.
void bringServerTime() {
    xcb_connection_t* connection = qtConnection();
    if (!connection) return;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const xcb_atom_t property = atomNamed(connection, "KESTRIO_TIME");
    constexpr std::uint8_t byteBits = 8;
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, root, property, XCB_ATOM_STRING, byteBits,
                        0, nullptr);
    xcb_delete_property(connection, root, property);
    xcb_flush(connection);
}

bool isOfThisProgram(std::uint32_t window) {
    xcb_connection_t* connection = qtConnection();
    if (!connection || window == XCB_WINDOW_NONE) return false;
    const xcb_setup_t* setup = xcb_get_setup(connection);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

}  // namespace kestrio
