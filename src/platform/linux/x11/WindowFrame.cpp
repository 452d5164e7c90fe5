#include "platform/linux/x11/WindowFrame.h"

#include "platform/linux/x11/WindowGeometry.h"

#include <xcb/shape.h>

namespace kestrio {

namespace {

xcb_window_t topmostAncestor(const XcbConnection& connection, xcb_window_t window) {
    for (;;) {
        const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
            connection.handle(), xcb_query_tree(connection.handle(), window), nullptr));
        if (!tree || tree->parent == XCB_WINDOW_NONE) return XCB_WINDOW_NONE;
        if (tree->parent == tree->root) return window;
        window = tree->parent;
    }
}

bool isViewable(const xcb_get_window_attributes_reply_t* attributes) {
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
           attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT;
}

QRect outerRectangle(const xcb_get_geometry_reply_t& geometry) {
    return {geometry.x, geometry.y, geometry.width + 2 * geometry.border_width,
            geometry.height + 2 * geometry.border_width};
}

/// The bounding shape, relative to the window without its border.
QRegion readShape(const XcbConnection& connection, xcb_window_t window, QRect whole) {
    if (!connection.hasExtension(&xcb_shape_id)) return whole;
    const XcbReply<xcb_shape_get_rectangles_reply_t> reply(xcb_shape_get_rectangles_reply(
        connection.handle(),
        xcb_shape_get_rectangles(connection.handle(), window, XCB_SHAPE_SK_BOUNDING), nullptr));
    if (!reply) return whole;
    std::vector<QRect> rectangles;
    for (auto each = xcb_shape_get_rectangles_rectangles_iterator(reply.get()); each.rem;
         xcb_rectangle_next(&each))
        rectangles.emplace_back(each.data->x, each.data->y, each.data->width, each.data->height);
    QRegion shape;
    for (const QRect& rectangle : rectangles)
        shape += rectangle;
    return shape;
}

}  // namespace

std::optional<WindowFrame> findFrame(XcbConnection& connection, xcb_window_t client) {
    xcb_connection_t* handle = connection.handle();
    WindowFrame frame;
    frame.window = topmostAncestor(connection, client);
    if (frame.window == XCB_WINDOW_NONE) return std::nullopt;
    const auto clientSeen = xcb_get_window_attributes(handle, client);
    const auto frameSeen = xcb_get_window_attributes(handle, frame.window);
    const auto clientSize = xcb_get_geometry(handle, client);
    const auto frameSize = xcb_get_geometry(handle, frame.window);
    const auto translated =
        xcb_translate_coordinates(handle, client, connection.screen().root, 0, 0);
    const auto borders = connection.ask(client, XAtom::netFrameExtents);
    const auto shadow = connection.ask(client, XAtom::gtkFrameExtents);

    const XcbReply<xcb_get_window_attributes_reply_t> clientAttributes(
        xcb_get_window_attributes_reply(handle, clientSeen, nullptr));
    const XcbReply<xcb_get_window_attributes_reply_t> frameAttributes(
        xcb_get_window_attributes_reply(handle, frameSeen, nullptr));
    const XcbReply<xcb_get_geometry_reply_t> clientGeometry(
        xcb_get_geometry_reply(handle, clientSize, nullptr));
    const XcbReply<xcb_get_geometry_reply_t> frameGeometry(
        xcb_get_geometry_reply(handle, frameSize, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(handle, translated, nullptr));
    const auto borderExtents = connection.values(borders);
    const auto shadowExtents = connection.values(shadow);
    if (!isViewable(clientAttributes.get()) || !isViewable(frameAttributes.get()) ||
        !clientGeometry || !frameGeometry || !origin)
        return std::nullopt;

    frame.outer = outerRectangle(*frameGeometry);
    const QRect inner(origin->dst_x, origin->dst_y, clientGeometry->width, clientGeometry->height);
    frame.visible = visibleRectangle(inner, borderExtents, shadowExtents) & frame.outer;
    if (frame.visible.isEmpty()) frame.visible = frame.outer;
    frame.depth = frameGeometry->depth;
    frame.visual = frameAttributes->visual;
    const int border = frameGeometry->border_width;
    const QRect whole(QPoint(-border, -border), frame.outer.size());
    frame.shape = readShape(connection, frame.window, whole)
                      .translated(frame.outer.topLeft() + QPoint(border, border));
    return frame;
}

bool isCovered(XcbConnection& connection, const WindowFrame& frame) {
    xcb_connection_t* handle = connection.handle();
    const XcbReply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(handle, xcb_query_tree(handle, connection.screen().root), nullptr));
    if (!tree) return true;
    // From the lowest to the topmost.
    const xcb_window_t* begin = xcb_query_tree_children(tree.get());
    const xcb_window_t* end = begin + xcb_query_tree_children_length(tree.get());
    const xcb_window_t* own = std::find(begin, end, frame.window);
    if (own == end) return true;
    struct Asked {
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_geometry_cookie_t geometry;
    };
    std::vector<Asked> asked;
    for (const xcb_window_t* each = own + 1; each != end; ++each)
        asked.push_back(
            {xcb_get_window_attributes(handle, *each), xcb_get_geometry(handle, *each)});
    bool isHit = false;
    for (const Asked& each : asked) {
        const XcbReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(handle, each.attributes, nullptr));
        const XcbReply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(handle, each.geometry, nullptr));
        isHit = isHit || (isViewable(attributes.get()) && geometry &&
                          outerRectangle(*geometry).intersects(frame.visible));
    }
    return isHit;
}

}  // namespace kestrio
