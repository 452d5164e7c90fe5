#include "capture/region/CaptureToolbar.h"

#include "core/Localisation.h"

namespace kestrio {

namespace {

constexpr double padding = 6;
constexpr double buttonSide = 32;
constexpr double buttonGap = 2;
constexpr double groupGap = 6;

}  // namespace

CaptureToolbar::CaptureToolbar() : next_(padding) {
    for (const AnnotationToolInfo& tool : annotationTools()) {
        if (tool.tool == AnnotationTool::select) continue;
        add(tool.tool, QByteArray(tool.name).toLower().constData(),
            displayName(tool.tool) + QStringLiteral("   ") + QChar::fromLatin1(tool.key).toUpper());
    }
    separate();
    add(CaptureAction::pin, "pin", localised("Pin to the desktop") + QStringLiteral("   Ctrl+P"));
    add(CaptureAction::copy, "doc.on.doc", localised("Copy") + QStringLiteral("   Ctrl+C"));
    add(CaptureAction::save, "square.and.arrow.down", localised("Save") + QStringLiteral("   Ctrl+S"));
    separate();
    add(CancelCapture(), "xmark", localised("Cancel") + QStringLiteral("   Esc"));
    add(CaptureAction::edit, "checkmark", localised("Done") + QStringLiteral("   Return"));
    buttons_.back().isPrimary = true;
    size_ = {next_ - buttonGap + padding, buttonSide + 2 * padding};
}

void CaptureToolbar::add(ToolbarCommand command, const char* icon, QString toolTip) {
    buttons_.push_back({command, QString::fromLatin1(icon), std::move(toolTip),
                        QRectF(next_, padding, buttonSide, buttonSide)});
    next_ += buttonSide + buttonGap;
}

void CaptureToolbar::separate() {
    separators_.push_back(next_ + groupGap / 2);
    next_ += groupGap + buttonGap;
}

int CaptureToolbar::buttonAt(QPointF point) const {
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        if (buttons_[i].place.contains(point)) return static_cast<int>(i);
    return -1;
}

}  // namespace kestrio
