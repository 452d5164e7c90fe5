#include "capture/region/CaptureToolbar.h"

#include "core/Localisation.h"

#include <QKeySequence>
#include <algorithm>

namespace kestrio {

namespace {

constexpr double padding = 6;
constexpr double buttonSide = 32;
constexpr double swatchWidth = 24;
constexpr double buttonGap = 2;
constexpr double groupGap = 8;
constexpr double separatorInset = 6;

struct NamedColor {
    const char* name;
    const CodableColor& color;
};

constexpr NamedColor swatches[] = {
    {Kestrio::marked("Red"), quickColors[0]},    {Kestrio::marked("Orange"), quickColors[1]},
    {Kestrio::marked("Yellow"), quickColors[2]}, {Kestrio::marked("Green"), quickColors[3]},
    {Kestrio::marked("Blue"), quickColors[4]},   {Kestrio::marked("Black"), quickColors[9]},
    {Kestrio::marked("White"), quickColors[7]},
};

QString withKey(const QString& text, const QString& key) {
    return text + QStringLiteral("   ") + QKeySequence(key).toString(QKeySequence::NativeText);
}

ToolbarButton button(ToolbarCommand command, const QString& icon, QString toolTip) {
    return {command, icon, std::move(toolTip), QRectF(0, 0, buttonSide, buttonSide)};
}

std::vector<ToolbarButton> toolButtons() {
    std::vector<ToolbarButton> group;
    for (const AnnotationToolInfo& tool : annotationTools()) {
        if (tool.tool == AnnotationTool::select) continue;
        const QString key = QChar::fromLatin1(tool.key).toUpper();
        group.push_back(
            button(tool.tool, QString::fromLatin1(tool.id), withKey(displayName(tool.tool), key)));
    }
    return group;
}

std::vector<ToolbarButton> colorButtons() {
    std::vector<ToolbarButton> group;
    for (const NamedColor& swatch : swatches) {
        const QString key = QString::number(group.size() + 1);
        group.push_back({swatch.color,
                         {},
                         withKey(Kestrio::tr(swatch.name), key),
                         QRectF(0, 0, swatchWidth, buttonSide)});
    }
    return group;
}

std::vector<ToolbarButton> actionButtons() {
    return {
        button(CaptureAction::pin, QStringLiteral("pin"),
               withKey(Kestrio::tr("Pin to the desktop"), QStringLiteral("Ctrl+P"))),
        button(CaptureAction::copy, QStringLiteral("doc.on.doc"),
               withKey(Kestrio::tr("Copy"), QStringLiteral("Ctrl+C"))),
        button(CaptureAction::save, QStringLiteral("square.and.arrow.down"),
               withKey(Kestrio::tr("Save"), QStringLiteral("Ctrl+S"))),
        button(CaptureAction::ocr, QStringLiteral("text.viewfinder"),
               withKey(Kestrio::tr("Read the text"), QStringLiteral("Ctrl+T"))),
    };
}

std::vector<ToolbarButton> endingButtons() {
    std::vector<ToolbarButton> group = {
        button(CancelCapture(), QStringLiteral("xmark"),
               withKey(Kestrio::tr("Cancel"), QStringLiteral("Esc"))),
        button(CaptureAction::edit, QStringLiteral("checkmark"),
               withKey(Kestrio::tr("Done"), QStringLiteral("Return"))),
    };
    group.back().isPrimary = true;
    return group;
}

}  // namespace

CaptureToolbar::CaptureToolbar(double widest) : next_(padding, padding) {
    place(toolButtons(), widest);
    place(colorButtons(), widest);
    place(actionButtons(), widest);
    place(endingButtons(), widest);
    moveLastRowRight();
}

void CaptureToolbar::moveLastRowRight() {
    const double slack = size_.width() - (next_.x() - buttonGap + padding);
    for (ToolbarButton& button : buttons_)
        if (button.place.top() >= next_.y()) button.place.translate(slack, 0);
    for (QLineF& separator : separators_)
        if (separator.y1() >= next_.y()) separator.translate(slack, 0);
}

void CaptureToolbar::place(std::vector<ToolbarButton> group, double widest) {
    double width = 0;
    for (const ToolbarButton& button : group)
        width += button.place.width() + buttonGap;
    const bool isFirst = next_.x() <= padding;
    if (!isFirst && next_.x() + groupGap + width - buttonGap + padding > widest) {
        next_ = {padding, next_.y() + buttonSide + buttonGap};
    } else if (!isFirst) {
        const double x = next_.x() + (groupGap - buttonGap) / 2;
        separators_.emplace_back(x, next_.y() + separatorInset, x,
                                 next_.y() + buttonSide - separatorInset);
        next_.rx() += groupGap;
    }
    for (ToolbarButton& button : group) {
        button.place.moveTopLeft(next_);
        next_.rx() += button.place.width() + buttonGap;
        buttons_.push_back(std::move(button));
    }
    size_ = {std::max(size_.width(), next_.x() - buttonGap + padding),
             next_.y() + buttonSide + padding};
}

int CaptureToolbar::buttonAt(QPointF point) const {
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        if (buttons_[i].place.contains(point)) return static_cast<int>(i);
    return -1;
}

std::optional<CodableColor> CaptureToolbar::colorOfKey(QChar key) const {
    const int index = key.digitValue() - 1;
    if (index < 0 || index >= static_cast<int>(std::size(swatches))) return std::nullopt;
    return swatches[index].color;
}

}  // namespace kestrio
