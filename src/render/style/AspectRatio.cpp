#include "render/style/AspectRatio.h"

namespace kestrio {

const std::vector<AspectRatio>& AspectRatio::presets() {
    static const std::vector<AspectRatio> list = {
        {QStringLiteral("Auto"), std::nullopt}, {QStringLiteral("1:1"), 1.0},
        {QStringLiteral("4:3"), 4.0 / 3.0},     {QStringLiteral("1.618:1"), 1.618},
        {QStringLiteral("16:9"), 16.0 / 9.0},   {QStringLiteral("3:2"), 1.5},
        {QStringLiteral("5:4"), 1.25},
    };
    return list;
}

const std::vector<SocialPlatform>& SocialPlatform::all() {
    static const std::vector<SocialPlatform> list = {
        {QStringLiteral("Twitter"),
         {{QStringLiteral("Tweet"), 16.0 / 9.0},
          {QStringLiteral("Header"), 3.0},
          {QStringLiteral("Post"), 1.0}}},
        {QStringLiteral("Instagram"),
         {{QStringLiteral("Square"), 1.0},
          {QStringLiteral("Portrait"), 0.8},
          {QStringLiteral("Story"), 0.5625}}},
        {QStringLiteral("LinkedIn"),
         {{QStringLiteral("Post"), 1.91}, {QStringLiteral("Article"), 16.0 / 9.0}}},
    };
    return list;
}

AspectRatio AspectRatio::custom(double width, double height) {
    const double ratio = width / height;
    return {customRatioLabel(ratio), ratio};
}

QString customRatioLabel(double ratio) {
    const auto decimals = [](double value) { return QString::number(value, 'f', 2); };
    if (ratio > 1) return Kestrio::tr("%1:1 (Landscape)").arg(decimals(ratio));
    if (ratio < 1) return Kestrio::tr("1:%1 (Portrait)").arg(decimals(1 / ratio));
    return Kestrio::tr("1:1 (Square)");
}

QSizeF canvasHolding(QSizeF imageSize, const AspectRatio& aspectRatio) {
    if (!aspectRatio.ratio || imageSize.isEmpty()) return imageSize;
    const double ratio = *aspectRatio.ratio;
    if (imageSize.width() / imageSize.height() < ratio) {
        return {imageSize.height() * ratio, imageSize.height()};
    }
    return {imageSize.width(), imageSize.width() / ratio};
}

}  // namespace kestrio
