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

}  // namespace

bool hasSelections() {
    return qtConnection() != nullptr;
}

std::uint32_t ownerOfSelection(const char* selection) {
    xcb_connection_t* connection = qtConnection();
    if (!connection) return XCB_WINDOW_NONE;
    const XcbReply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, false, static_cast<std::uint16_t>(std::strlen(selection)),
                        selection),
        nullptr));
    if (!atom) return XCB_WINDOW_NONE;
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return reply ? reply->owner : std::uint32_t{XCB_WINDOW_NONE};
}

bool isOfThisProgram(std::uint32_t window) {
    xcb_connection_t* connection = qtConnection();
    if (!connection || window == XCB_WINDOW_NONE) return false;
    const xcb_setup_t* setup = xcb_get_setup(connection);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

}  // namespace kestrio
