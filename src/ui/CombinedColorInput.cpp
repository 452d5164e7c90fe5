#include "ui/CombinedColorInput.h"

#include "ui/ColorInput.h"

namespace kestrio {

void CombinedColorInput::enterHex(const QString& text) {
    const ColorInputResult result = readHexInput(text);
    set_errorMessage(result.message);
    if (result.color) set_color(result.color->toQColor());
}

void CombinedColorInput::enterRgb(const QString& red, const QString& green, const QString& blue) {
    if (const auto typed = readRgbInput(red, green, blue)) set_color(typed->toQColor());
}

void CombinedColorInput::switchMode() {
    set_errorMessage({});
    set_inputMode(inputMode() == ColorInputMode::hex ? ColorInputMode::rgb : ColorInputMode::hex);
}

}  // namespace kestrio
