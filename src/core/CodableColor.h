#pragma once

#include "core/Json.h"

#include <QColor>
#include <optional>

namespace kestrio {

/// A colour of four components, each 0 to 1, not premultiplied, in sRGB. Values out of range are
/// kept and clamped where they are drawn.
struct CodableColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    bool operator==(const CodableColor&) const = default;

    /// The same colour with its alpha multiplied.
    CodableColor withAlphaTimes(double factor) const { return {red, green, blue, alpha * factor}; }

    QColor toQColor() const;

    /// Reads "#RGB", "#RRGGBB" or "#RRGGBBAA", with or without "#"; nothing for anything else.
    static std::optional<CodableColor> fromHex(QStringView text);

    static constexpr auto jsonFields() {
        return std::tuple(
            jsonField("red", &CodableColor::red), jsonField("green", &CodableColor::green),
            jsonField("blue", &CodableColor::blue), jsonField("alpha", &CodableColor::alpha));
    }
};

}  // namespace kestrio
