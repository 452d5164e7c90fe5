#include "editor/views/ColorPanel.h"

#include "editor/views/StyleFields.h"
#include "editor/views/ViewRows.h"

#include <QPointer>

namespace kestrio {

ColorPanel::ColorPanel(EditorViewModel& editor, QObject* parent)
    : ColorPicking(parent), editor_(editor) {
    using Picker = ColorPickerViewModel;
    connect(&picker(), &Picker::isColorPickingModeChanged, this, &ColorPanel::pickingChanged);
    connect(&picker(), &Picker::currentColorChanged, this, &ColorPanel::colorChanged);
    connect(&picker(), &Picker::currentTextChanged, this, &ColorPanel::colorChanged);
    connect(&picker(), &Picker::colorHistoryChanged, this, &ColorPanel::recentChanged);
    connect(&picker(), &Picker::showCopiedFeedbackChanged, this, &ColorPanel::copiedChanged);
    connect(&picker(), &Picker::toastMessageChanged, this, [this] {
        if (!picker().toastMessage().isEmpty()) editor_.set_toastMessage(picker().toastMessage());
    });
}

QVariantList ColorPanel::recent() const {
    QVariantList colors;
    for (const PickedColor& color : picker().colorHistory())
        colors << color.swatch();
    return colors;
}

QVariantList ColorPanel::formats() const {
    return viewRows<ColorFormat>();
}

QString ColorPanel::format() const {
    return rawName(picker().currentFormat());
}

void ColorPanel::toggle(bool forBackdrop) {
    isForBackdrop_ = forBackdrop;
    editor_.toggleColorPicker();
}

void ColorPanel::pickFor(QObject* receiver) {
    if (isPicking()) return;
    isForBackdrop_ = false;
    editor_.toggleColorPicker([this, to = QPointer(receiver)](const PickedColor& picked) {
        if (to) Q_EMIT pickedFor(to, picked.swatch());
    });
}

void ColorPanel::movePointer(const QPointF& point) {
    picker().movePointer(editor_.screenshot(), point);
}

void ColorPanel::pick(const QPointF& point, bool forBackdrop) {
    picker().pick(editor_.screenshot(), point, forBackdrop || isForBackdrop_);
}

void ColorPanel::show(const QColor& color) {
    picker().showColor(codableColor(color));
}

void ColorPanel::chooseFormat(const QString& id) {
    if (const auto format = namedValue<ColorFormat>(id)) picker().chooseFormat(*format);
}

QColor ColorPanel::textOn(const QColor& color) const {
    return contrastTextColor(codableColor(color)).toQColor();
}

}  // namespace kestrio
