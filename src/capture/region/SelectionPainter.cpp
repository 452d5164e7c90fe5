#include "capture/region/SelectionPainter.h"

#include "ui/Palette.h"

#include <QPainter>

namespace kestrio {

namespace {

constexpr double handleSize = 10;
// How far borders and handles reach beyond the selection.
constexpr int borderReach = 8;

void paintHandles(QPainter& painter, const QRectF& selection) {
    painter.setPen(QPen(Palette::light().accent, 1.5));
    painter.setBrush(Qt::white);
    for (const SelectionHandle handle : selectionHandles) {
        QRectF square(0, 0, handleSize, handleSize);
        square.moveCenter(handlePosition(handle, selection));
        painter.drawRect(square);
    }
}

}  // namespace

void paintSelection(QPainter& painter, const RegionSelection& selection) {
    const QRectF rect = selection.cutOut();
    if (rect.isEmpty()) return;
    painter.setBrush(Qt::NoBrush);
    if (selection.isSnapping()) {
        painter.setPen(QPen(Palette::light().accent, 3));
        painter.drawRect(rect);
        return;
    }
    painter.setPen(QPen(Qt::white, 2));
    painter.drawRect(rect.adjusted(-1, -1, 1, 1));
    painter.setPen(QPen(QColor(0, 0, 0, 150), 1, Qt::DashLine));
    painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
    if (selection.phase() == SelectionPhase::adjusting) paintHandles(painter, rect);
}

QRegion selectionBorder(const QRectF& rect) {
    if (rect.isEmpty()) return {};
    const QRect outer =
        rect.toAlignedRect().adjusted(-borderReach, -borderReach, borderReach, borderReach);
    const QRect inner =
        rect.toRect().adjusted(borderReach, borderReach, -borderReach, -borderReach);
    return QRegion(outer) - (inner.isValid() ? QRegion(inner) : QRegion());
}

}  // namespace kestrio
