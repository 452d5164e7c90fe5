#include "platform/linux/x11/Monitors.h"

#include <xcb/randr.h>

namespace kestrio {

std::vector<Monitor> readMonitors(XcbConnection& connection) {
    if (!connection.open() || !connection.hasExtension(&xcb_randr_id)) return {};
    xcb_connection_t* handle = connection.handle();
    // The server counts as old, without monitors, whoever does not say how new it is itself.
    const auto version = xcb_randr_query_version(handle, 1, 5);
    const auto asked = xcb_randr_get_monitors(handle, connection.screen().root, true);
    const XcbReply<xcb_randr_query_version_reply_t> known(
        xcb_randr_query_version_reply(handle, version, nullptr));
    const XcbReply<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(handle, asked, nullptr));
    if (!reply) return {};
    std::vector<xcb_get_atom_name_cookie_t> names;
    std::vector<Monitor> monitors;
    for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem;
         xcb_randr_monitor_info_next(&each)) {
        names.push_back(xcb_get_atom_name(handle, each.data->name));
        monitors.push_back({{}, {each.data->x, each.data->y, each.data->width, each.data->height}});
    }
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        const XcbReply<xcb_get_atom_name_reply_t> name(
            xcb_get_atom_name_reply(handle, names[i], nullptr));
        if (!name) continue;
        monitors[i].name = QString::fromUtf8(xcb_get_atom_name_name(name.get()),
                                             xcb_get_atom_name_name_length(name.get()));
    }
    return monitors;
}

}  // namespace kestrio
