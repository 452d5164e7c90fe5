#pragma once

#include "platform/linux/x11/XcbConnection.h"

#include <QImage>
#include <QRect>

namespace kestrio {

/// How the server keeps pixels of a depth and a visual.
struct PixelLayout {
    QImage::Format format = QImage::Format_Invalid;  ///< where this reads them, Invalid for others
    int bytesPerPixel = 0;
};

/// The layout of a drawable of this depth, whose colours are those of `visual`.
PixelLayout layoutOf(const XcbConnection& connection, int depth, xcb_visualid_t visual);

/// A part of a drawable, which must lie inside of it, at one moment: Format_RGB32 with a full
/// fourth byte, or Format_ARGB32_Premultiplied where the layout has alpha. Null where the server
/// refuses.
QImage readPixels(const XcbConnection& connection, xcb_drawable_t drawable, QRect part,
                  PixelLayout layout);

}  // namespace kestrio
