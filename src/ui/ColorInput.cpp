#include "ui/ColorInput.h"

namespace kestrio {

namespace {

std::optional<double> readChannel(QStringView text) {
    bool isNumber = false;
    const int value = text.trimmed().toInt(&isNumber);
    if (!isNumber || value < 0 || value > 255) return std::nullopt;
    return value / 255.0;
}

}  // namespace

ColorInputResult readHexInput(QStringView text) {
    text = text.trimmed();
    if (text.startsWith(u'#')) text = text.mid(1);
    if (text.isEmpty()) return {};
    if (text.size() != 3 && text.size() != 6) {
        return {std::nullopt, Kestrio::tr("Use 3 or 6 hex digits")};
    }
    // A second "#" is none of the digits.
    const auto color = text.startsWith(u'#') ? std::nullopt : CodableColor::fromHex(text);
    if (!color) return {std::nullopt, Kestrio::tr("Invalid characters")};
    return {color, {}};
}

std::optional<CodableColor> readRgbInput(QStringView red, QStringView green, QStringView blue) {
    const auto r = readChannel(red), g = readChannel(green), b = readChannel(blue);
    if (!r || !g || !b) return std::nullopt;
    return CodableColor{*r, *g, *b, 1};
}

}  // namespace kestrio
