#include "capture/region/SelectionKeys.h"

#include <QKeyEvent>

namespace kestrio {

namespace {

constexpr double shortStep = 1;
constexpr double longStep = 10;

std::optional<ToolbarCommand> controlCommand(int key) {
    switch (key) {
        case Qt::Key_C:
            return CaptureAction::copy;
        case Qt::Key_S:
            return CaptureAction::save;
        case Qt::Key_P:
            return CaptureAction::pin;
        case Qt::Key_T:
            return CaptureAction::ocr;
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<QPointF> stepOfKey(const QKeyEvent& event) {
    const double step = event.modifiers() & Qt::ShiftModifier ? longStep : shortStep;
    switch (event.key()) {
        case Qt::Key_Left:
            return QPointF(-step, 0);
        case Qt::Key_Right:
            return QPointF(step, 0);
        case Qt::Key_Up:
            return QPointF(0, -step);
        case Qt::Key_Down:
            return QPointF(0, step);
        default:
            return std::nullopt;
    }
}

std::optional<ToolbarCommand> commandOfKey(const QKeyEvent& event, const CaptureToolbar& toolbar) {
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) return CaptureAction::edit;
    if (event.modifiers() & Qt::ControlModifier) return controlCommand(event.key());
    if (event.text().size() != 1) return std::nullopt;
    const QChar letter = event.text().front();
    if (const auto color = toolbar.colorOfKey(letter)) return *color;
    const auto tool = annotationToolOfKey(letter);
    if (!tool || *tool == AnnotationTool::select) return std::nullopt;
    return *tool;
}

}  // namespace kestrio
