#include "library/color/ColorPickerViewModel.h"

#include "core/Clamp.h"

namespace kestrio {

namespace {

const QString formatKey = QStringLiteral("com.kestrio.preferredColorFormat");

constexpr std::chrono::milliseconds feedbackTime(1500);

double atLeastZero(double component) {
    return clampedOr(component, 0, std::numeric_limits<double>::max());
}

}  // namespace

ColorPickerViewModel::ColorPickerViewModel(std::shared_ptr<ColorHistoryService> history,
                                           std::shared_ptr<UserDefaults> userDefaults,
                                           std::shared_ptr<Pasteboard> pasteboard, QObject* parent)
    : QObject(parent),
      history_(std::move(history)),
      userDefaults_(std::move(userDefaults)),
      pasteboard_(std::move(pasteboard)) {
    if (const auto raw = userDefaults_->string(formatKey)) {
        set_currentFormat(fromRawString<ColorFormat>(raw->toStdString()).value_or(currentFormat()));
    }
    const auto takeHistory = [this] { set_colorHistory(history_->recentColors()); };
    takeHistory();
    connect(history_.get(), &ColorHistoryService::recentColorsChanged, this, takeHistory);
    for (const auto changed : {&ColorPickerViewModel::currentColorChanged,
                               &ColorPickerViewModel::currentFormatChanged}) {
        connect(this, changed, this, &ColorPickerViewModel::currentTextChanged);
    }
    feedbackTimer_.setSingleShot(true);
    feedbackTimer_.setInterval(feedbackTime);
    connect(&feedbackTimer_, &QTimer::timeout, this, &ColorPickerViewModel::endFeedback);
}

void ColorPickerViewModel::movePointer(const Image& image, QPointF point) {
    if (!isColorPickingMode()) return;
    set_cursorPosition(point);
    set_currentColor(sampler_.colorAt(image, point));
}

void ColorPickerViewModel::pick(const Image& image, QPointF point, bool forBackdrop) {
    movePointer(image, point);
    if (!isColorPickingMode() || !currentColor()) return;
    const PickedColor picked = PickedColor::of(*currentColor());
    set_lastPickedColor(picked);
    history_->add(picked);
    set_isColorPickingMode(false);
    Q_EMIT colorPicked(picked);
    if (forBackdrop) Q_EMIT backdropColorPicked(picked);
}

void ColorPickerViewModel::showColor(const CodableColor& color) {
    set_currentColor(CodableColor{atLeastZero(color.red), atLeastZero(color.green),
                                  atLeastZero(color.blue), atLeastZero(color.alpha)});
}

void ColorPickerViewModel::chooseFormat(ColorFormat format) {
    set_currentFormat(format);
    userDefaults_->setString(formatKey, rawString(format));
}

void ColorPickerViewModel::copyCurrentColor() {
    if (!currentColor()) return;
    if (!pasteboard_->writeText(colorText(*currentColor(), currentFormat()))) return;
    set_toastMessage(Kestrio::tr("Copied!"));
    set_showCopiedFeedback(true);
    feedbackTimer_.start();
}

QColor ColorPickerViewModel::currentSwatch() const {
    return currentColor() ? currentColor()->toQColor() : QColor(Qt::transparent);
}

QString ColorPickerViewModel::currentText() const {
    return currentColor() ? colorText(*currentColor(), currentFormat()) : Kestrio::tr("No color");
}

void ColorPickerViewModel::endFeedback() {
    set_showCopiedFeedback(false);
    set_toastMessage({});
}

}  // namespace kestrio
