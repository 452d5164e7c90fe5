#pragma once

#include "core/CodableColor.h"
#include "core/EnumTable.h"

namespace kestrio {

/// How a colour is written as a text.
enum class ColorFormat { hex, rgb, hsl };

inline constexpr EnumTable<ColorFormat, 3> colorFormats = {{
    {ColorFormat::hex, "hex", "Hex"},
    {ColorFormat::rgb, "rgb", "RGB"},
    {ColorFormat::hsl, "hsl", "HSL"},
}};
constexpr const auto& enumTable(ColorFormat) {
    return colorFormats;
}

/// Hue 0 to 360 degrees; saturation and lightness 0 to 1.
struct HslColor {
    double hue = 0;
    double saturation = 0;
    double lightness = 0;
};

/// Greys have neither hue nor saturation.
HslColor hslColor(const CodableColor& color);

/// "#FF8000", "rgb(255, 128, 0)" or "hsl(30, 100%, 50%)"; with the alpha where it is below 1:
/// "#FF800080", "rgba(255, 128, 0, 0.50)", "hsla(30, 100%, 50%, 0.50)". Components out of range are
/// written as the nearest in it.
QString colorText(const CodableColor& color, ColorFormat format);

/// What is readable on a swatch of the colour: translucent black on light ones, else white.
CodableColor contrastTextColor(const CodableColor& color);

}  // namespace kestrio
