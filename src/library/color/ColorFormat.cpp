#include "library/color/ColorFormat.h"

#include "core/Clamp.h"

namespace kestrio {

namespace {

int whole(double share, int greatest) {
    return static_cast<int>(std::lround(share * greatest));
}

CodableColor inRange(const CodableColor& color) {
    return {clampedOr(color.red, 0, 1), clampedOr(color.green, 0, 1), clampedOr(color.blue, 0, 1),
            clampedOr(color.alpha, 0, 1)};
}

QString hexText(const CodableColor& color) {
    const QString opaque = QString::asprintf("#%02X%02X%02X", whole(color.red, 255),
                                             whole(color.green, 255), whole(color.blue, 255));
    return color.alpha < 1 ? opaque + QString::asprintf("%02X", whole(color.alpha, 255)) : opaque;
}

QString rgbText(const CodableColor& color) {
    const int red = whole(color.red, 255), green = whole(color.green, 255);
    const int blue = whole(color.blue, 255);
    if (color.alpha < 1) {
        return QString::asprintf("rgba(%d, %d, %d, %.2f)", red, green, blue, color.alpha);
    }
    return QString::asprintf("rgb(%d, %d, %d)", red, green, blue);
}

QString hslText(const CodableColor& color) {
    const HslColor hsl = hslColor(color);
    const int hue = static_cast<int>(std::lround(hsl.hue));
    const int saturation = whole(hsl.saturation, 100), lightness = whole(hsl.lightness, 100);
    if (color.alpha < 1) {
        return QString::asprintf("hsla(%d, %d%%, %d%%, %.2f)", hue, saturation, lightness,
                                 color.alpha);
    }
    return QString::asprintf("hsl(%d, %d%%, %d%%)", hue, saturation, lightness);
}

}  // namespace

HslColor hslColor(const CodableColor& color) {
    const double most = std::max({color.red, color.green, color.blue});
    const double least = std::min({color.red, color.green, color.blue});
    const double delta = most - least;
    HslColor hsl{0, 0, (most + least) * 0.5};
    if (delta == 0) return hsl;
    hsl.saturation = delta / (1 - std::abs(2 * hsl.lightness - 1));
    double sixths;
    if (most == color.red) {
        sixths = std::fmod((color.green - color.blue) / delta, 6);
    } else if (most == color.green) {
        sixths = (color.blue - color.red) / delta + 2;
    } else {
        sixths = (color.red - color.green) / delta + 4;
    }
    hsl.hue = sixths * 60;
    if (hsl.hue < 0) hsl.hue += 360;
    return hsl;
}

QString colorText(const CodableColor& color, ColorFormat format) {
    const CodableColor limited = inRange(color);
    switch (format) {
        case ColorFormat::hex:
            return hexText(limited);
        case ColorFormat::rgb:
            return rgbText(limited);
        case ColorFormat::hsl:
            return hslText(limited);
    }
    return {};
}

CodableColor contrastTextColor(const CodableColor& color) {
    const double luma = 0.299 * color.red + 0.587 * color.green + 0.114 * color.blue;
    return luma > 0.5 ? CodableColor{0, 0, 0, 0.8} : CodableColor{1, 1, 1, 0.9};
}

}  // namespace kestrio
