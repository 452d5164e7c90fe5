#pragma once

#include <QImage>
#include <stop_token>

#include <xcb/xcb.h>

namespace kestrio {

/// A window as ScreenGrabber::grabWindow() gives it. Takes up to a second, so that a thread of the
/// background calls it. Throws ScreenGrabError, and Cancelled after a stop.
QImage readWindow(xcb_window_t client, const std::stop_token& stop);

}  // namespace kestrio
