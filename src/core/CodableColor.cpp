#include "core/CodableColor.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

float component(double value) {
    return std::isnan(value) ? 0.0f : static_cast<float>(std::clamp(value, 0.0, 1.0));
}

std::optional<int> hexDigit(QChar digit) {
    const int code = digit.toLower().unicode();
    if (code >= '0' && code <= '9') return code - '0';
    if (code >= 'a' && code <= 'f') return code - 'a' + 10;
    return std::nullopt;
}

}  // namespace

QColor CodableColor::toQColor() const {
    return QColor::fromRgbF(component(red), component(green), component(blue), component(alpha));
}

std::optional<CodableColor> CodableColor::fromHex(QStringView text) {
    if (text.startsWith(u'#')) text = text.mid(1);
    const bool isShort = text.size() == 3;
    if (!isShort && text.size() != 6 && text.size() != 8) return std::nullopt;
    std::array<double, 4> components = {0, 0, 0, 1};
    const qsizetype digitsEach = isShort ? 1 : 2;
    for (qsizetype i = 0; i * digitsEach < text.size(); ++i) {
        const auto high = hexDigit(text[i * digitsEach]);
        const auto low = hexDigit(text[i * digitsEach + digitsEach - 1]);
        if (!high || !low) return std::nullopt;
        components[i] = (*high * 16 + *low) / 255.0;
    }
    return CodableColor{components[0], components[1], components[2], components[3]};
}

}  // namespace kestrio
