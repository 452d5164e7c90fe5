#pragma once

#include "render/style/FrameStyle.h"

#include <QPainterPath>
#include <QRectF>

namespace kestrio {

/// A frame around a content rectangle, in the coordinates of whoever draws it; `scale` is units a
/// point (display scale times frame scale), below 0 acts as 0.
struct FrameShape {
    FrameStyle style = FrameStyle::none;
    QRectF content;
    double scale = 1;
    /// True where the content hides all that lies under it. Then the window is not painted there,
    /// which would shine through at the content's antialiased edges.
    bool contentIsOpaque = false;

    /// The content with the title bar above it.
    QRectF window() const;
    QRectF titleBar() const;
    double cornerRadius() const;
    QPainterPath windowPath() const;

    /// The back sheet at `depth` (1 stands right behind the window).
    QPainterPath sheetPath(int depth) const;

    /// The window and all its sheets: what casts the shadow.
    QPainterPath silhouette() const;

    /// The window with its sheets as a rectangle: the picture's extent.
    QRectF extent() const;

    /// The part of the window that shows its own background: all of it, or what opaque content
    /// leaves.
    QPainterPath backgroundPath() const;

    /// The part of the window that the content fills, rounded where the window is.
    QPainterPath contentPath() const;
};

/// A rounded rectangle whose radius is limited to half its sides.
QPainterPath roundedRect(const QRectF& rect, double radius);

}  // namespace kestrio
