#pragma once

#include "capture/region/CaptureToolbar.h"

#include <QImage>
#include <map>

class QPainter;

namespace kestrio {

/// How a toolbar is painted.
struct ToolbarLook {
    QPointF origin;    ///< of the toolbar, in points
    int hovered = -1;  ///< index of a button
    int pressed = -1;
    bool showsToolTip = false;
    CodableColor color;  ///< that tools start with
    bool isDark = false;
    QSizeF view;  ///< what the tool tip must stay in
};

/// Paints toolbars, and keeps the icons in the pixels that they were last needed in.
class CaptureToolbarPainter {
  public:
    void paint(QPainter& painter, const CaptureToolbar& toolbar, const ToolbarLook& look);
    /// The hovered button's tool tip.
    static QRectF toolTipPlace(const CaptureToolbar& toolbar, const ToolbarLook& look);

  private:
    void paintIcon(QPainter& painter, const ToolbarButton& button, QPointF center, QColor ink);
    const QImage& icon(const QString& name, QColor color, double scale);

    std::map<QString, QImage> icons_;
};

}  // namespace kestrio
