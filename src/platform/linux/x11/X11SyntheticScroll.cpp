#include "platform/linux/x11/X11SyntheticScroll.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <xcb/xtest.h>

namespace kestrio {

namespace {

// A wheel's steps are presses of buttons by the protocol.
constexpr std::uint8_t wheelUp = 4;
constexpr std::uint8_t wheelDown = 5;

QPoint pixelUnder(const Display& display, QPointF point) {
    const QPointF pixel = display.toPixels(point);
    // A point's pixel is the one that it lies in; what sums of fractions lose must not move it.
    constexpr double tolerance = 1e-3;
    return {static_cast<int>(std::floor(pixel.x() + tolerance)),
            static_cast<int>(std::floor(pixel.y() + tolerance))};
}

}  // namespace

X11SyntheticScroll::X11SyntheticScroll(std::shared_ptr<XcbConnection> connection,
                                       std::shared_ptr<Displays> displays)
    : connection_(std::move(connection)), displays_(std::move(displays)) {}

bool X11SyntheticScroll::isPermitted() const {
    return connection_->open() && connection_->hasExtension(&xcb_test_id);
}

std::optional<QPoint> X11SyntheticScroll::pointerPixel() const {
    if (!connection_->open()) return std::nullopt;
    xcb_connection_t* handle = connection_->handle();
    const XcbReply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        handle, xcb_query_pointer(handle, connection_->screen().root), nullptr));
    if (!reply || !reply->same_screen) return std::nullopt;
    return QPoint(reply->root_x, reply->root_y);
}

QPointF X11SyntheticScroll::pointer() const {
    if (const auto pixel = pointerPixel())
        for (const Display& display : displays_->displays())
            if (display.pixels.contains(*pixel)) return display.toPoints(QPointF(*pixel));
    return displays_->pointerPosition();
}

bool X11SyntheticScroll::movePointerTo(QPointF point) {
    const auto display = displays_->displayAt(point);
    if (!display) return false;
    const QPoint pixel = pixelUnder(*display, point);
    if (pointerPixel() == pixel) return true;
    constexpr std::uint8_t absolute = 0;
    xcb_test_fake_input(connection_->handle(), XCB_MOTION_NOTIFY, absolute, XCB_CURRENT_TIME,
                        connection_->screen().root, static_cast<std::int16_t>(pixel.x()),
                        static_cast<std::int16_t>(pixel.y()), 0);
    return true;
}

void X11SyntheticScroll::movePointer(QPointF to) {
    if (!isPermitted()) return;
    movePointerTo(to);
    xcb_flush(connection_->handle());
}

void X11SyntheticScroll::scroll(QPointF at, int clicks) {
    if (!isPermitted() || !movePointerTo(at)) return;
    const std::uint8_t button = clicks > 0 ? wheelDown : wheelUp;
    for (int i = 0; i < std::abs(clicks); ++i)
        for (const std::uint8_t type : {XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE})
            xcb_test_fake_input(connection_->handle(), type, button, XCB_CURRENT_TIME,
                                XCB_WINDOW_NONE, 0, 0, 0);
    xcb_flush(connection_->handle());
}

}  // namespace kestrio
