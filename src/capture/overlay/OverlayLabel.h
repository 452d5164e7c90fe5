#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>

class QPainter;

namespace kestrio {

/// A few words in a rounded dark box.
struct OverlayLabel {
    QString text;
    QFont font;
    double sidePadding = 6;
    double topPadding = 3;
    double radius = 4;

    /// Of the box, in points.
    QSizeF size() const;
    void paint(QPainter& painter, const QRectF& box) const;
};

}  // namespace kestrio
