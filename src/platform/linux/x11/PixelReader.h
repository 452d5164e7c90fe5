#pragma once

#include "platform/linux/x11/SharedSegment.h"
#include "platform/linux/x11/XcbConnection.h"

#include <QImage>
#include <QRect>
#include <optional>

namespace kestrio {

/// How the server keeps pixels of a depth and a visual.
struct PixelLayout {
    QImage::Format format = QImage::Format_Invalid;  ///< where this reads them, Invalid for others
    int bytesPerPixel = 0;
};

/// The layout of a drawable of this depth, whose colours are those of `visual`.
PixelLayout layoutOf(const XcbConnection& connection, int depth, xcb_visualid_t visual);

/// Reads what drawables show. Keeps the memory through which it reads (3 MB, from the first
/// picture), since that is slow to get. For one thread at a time.
class PixelReader {
  public:
    /// The connection outlives this, and is open by the first call.
    explicit PixelReader(const XcbConnection& connection) : connection_(connection) {}

    /// A part of a drawable, which must lie inside of it, at one moment: Format_RGB32 with a full
    /// fourth byte, or Format_ARGB32_Premultiplied where the layout has alpha. Null where the
    /// server refuses. Events that have come meanwhile stay with the connection.
    QImage read(xcb_drawable_t drawable, QRect part, PixelLayout layout);

  private:
    bool readByBands(xcb_drawable_t drawable, QRect part, QImage& image) const;
    bool readAtOnce(xcb_drawable_t drawable, QRect part, QImage& image) const;

    const XcbConnection& connection_;
    std::optional<SharedSegment> segment_;
};

}  // namespace kestrio
