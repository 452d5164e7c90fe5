#include "platform/linux/x11/ClientWindow.h"

#include "platform/linux/x11/WindowGeometry.h"

#include <unistd.h>
#include <QFile>
#include <algorithm>

namespace kestrio {

namespace {

// The server's answer about one window, asked for before the first of them is read.
struct Asked {
    xcb_window_t id;
    xcb_get_window_attributes_cookie_t attributes;
    xcb_get_geometry_cookie_t geometry;
    xcb_translate_coordinates_cookie_t origin;
    xcb_get_property_cookie_t types;
    xcb_get_property_cookie_t states;
    xcb_get_property_cookie_t desktop;
    xcb_get_property_cookie_t frame;
    xcb_get_property_cookie_t shadow;
    xcb_get_property_cookie_t name;
    xcb_get_property_cookie_t oldName;
    xcb_get_property_cookie_t names;
    xcb_get_property_cookie_t process;
};

constexpr XAtom typesOfNoProgram[] = {
    XAtom::netWmWindowTypeDesktop,      XAtom::netWmWindowTypeDock,
    XAtom::netWmWindowTypeDropdownMenu, XAtom::netWmWindowTypeMenu,
    XAtom::netWmWindowTypeNotification, XAtom::netWmWindowTypePopupMenu,
    XAtom::netWmWindowTypeSplash,       XAtom::netWmWindowTypeTooltip,
};

Asked ask(XcbConnection& connection, xcb_window_t id) {
    xcb_connection_t* handle = connection.handle();
    return {id,
            xcb_get_window_attributes(handle, id),
            xcb_get_geometry(handle, id),
            xcb_translate_coordinates(handle, id, connection.screen().root, 0, 0),
            connection.ask(id, XAtom::netWmWindowType),
            connection.ask(id, XAtom::netWmState),
            connection.ask(id, XAtom::netWmDesktop),
            connection.ask(id, XAtom::netFrameExtents),
            connection.ask(id, XAtom::gtkFrameExtents),
            connection.ask(id, XAtom::netWmName),
            connection.ask(id, XCB_ATOM_WM_NAME),
            connection.ask(id, XCB_ATOM_WM_CLASS),
            connection.ask(id, XAtom::netWmPid)};
}

QString processName(std::uint32_t process) {
    QFile file(QStringLiteral("/proc/%1/comm").arg(process));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll()).trimmed();
}

/// WM_CLASS holds two names, each ended by a zero byte; the second is the program's.
QString ownerName(const QByteArray& names, const std::vector<std::uint32_t>& process) {
    const QString className = QString::fromUtf8(names.split('\0').value(1));
    if (!className.isEmpty()) return className;
    const QString command = process.empty() ? QString() : processName(process.front());
    return command.isEmpty() ? QStringLiteral("Unknown") : command;
}

bool contains(const std::vector<std::uint32_t>& values, std::uint32_t value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

/// What belongs to a desktop rather than to a program. The first type that is known counts, so that
/// docks which call themselves windows too stay out.
bool isOfNoProgram(XcbConnection& connection, const std::vector<std::uint32_t>& types) {
    return std::any_of(std::begin(typesOfNoProgram), std::end(typesOfNoProgram),
                       [&](XAtom type) { return contains(types, connection.atom(type)); });
}

bool isOnDesktop(const std::vector<std::uint32_t>& own, const std::vector<std::uint32_t>& current) {
    constexpr std::uint32_t everyDesktop = 0xffffffff;
    return own.empty() || current.empty() || own[0] == everyDesktop || own[0] == current[0];
}

std::optional<ClientWindow> answer(XcbConnection& connection, const Asked& asked,
                                   const std::vector<std::uint32_t>& currentDesktop) {
    xcb_connection_t* handle = connection.handle();
    const XcbReply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(handle, asked.attributes, nullptr));
    const XcbReply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(handle, asked.geometry, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(handle, asked.origin, nullptr));
    // Each answer is taken, also of windows that do not count: the connection would keep it.
    const auto types = connection.values(asked.types);
    const auto states = connection.values(asked.states);
    const auto desktop = connection.values(asked.desktop);
    const auto frame = connection.values(asked.frame);
    const auto shadow = connection.values(asked.shadow);
    const QByteArray name = connection.text(asked.name);
    const QByteArray oldName = connection.text(asked.oldName);
    const QByteArray names = connection.text(asked.names);
    const auto process = connection.values(asked.process);

    if (!attributes || !geometry || !origin) return std::nullopt;
    const bool isVisible = attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
                           attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT &&
                           !attributes->override_redirect &&
                           !contains(states, connection.atom(XAtom::netWmStateHidden));
    if (!isVisible || isOfNoProgram(connection, types) || !isOnDesktop(desktop, currentDesktop))
        return std::nullopt;
    const QRect inner(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
    return ClientWindow{asked.id, visibleRectangle(inner, frame, shadow), ownerName(names, process),
                        name.isEmpty() ? QString::fromLatin1(oldName) : QString::fromUtf8(name),
                        contains(states, connection.atom(XAtom::netWmStateAbove))};
}

}  // namespace

std::vector<ClientWindow> readClientWindows(XcbConnection& connection) {
    xcb_connection_t* handle = connection.handle();
    const xcb_window_t root = connection.screen().root;
    const auto askedStacking = connection.ask(root, XAtom::netClientListStacking);
    const auto askedDesktop = connection.ask(root, XAtom::netCurrentDesktop);
    const auto askedTree = xcb_query_tree(handle, root);
    std::vector<xcb_window_t> ids = connection.values(askedStacking);
    const auto currentDesktop = connection.values(askedDesktop);
    const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(handle, askedTree, nullptr));
    if (ids.empty() && tree) {
        const auto* begin = xcb_query_tree_children(tree.get());
        ids.assign(begin, begin + xcb_query_tree_children_length(tree.get()));
    }
    std::vector<Asked> asked;
    asked.reserve(ids.size());
    for (const xcb_window_t id : ids)
        asked.push_back(ask(connection, id));
    std::vector<ClientWindow> found;
    for (const Asked& each : asked)
        if (auto window = answer(connection, each, currentDesktop))
            found.push_back(std::move(*window));
    connection.dropEvents();
    return found;
}

}  // namespace kestrio
