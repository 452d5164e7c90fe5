#pragma once

#include "core/CodableColor.h"

namespace kestrio {

/// What a watermark is made of.
enum class WatermarkType { text, image };

inline constexpr EnumTable<WatermarkType, 2> watermarkTypes = {{
    {WatermarkType::text, "text", "Text"},
    {WatermarkType::image, "image", "Image"},
}};
constexpr const auto& enumTable(WatermarkType) {
    return watermarkTypes;
}

/// Where a watermark stands on the screenshot, row by row.
enum class WatermarkPosition {
    topLeft,
    topCenter,
    topRight,
    middleLeft,
    center,
    middleRight,
    bottomLeft,
    bottomCenter,
    bottomRight
};

inline constexpr EnumTable<WatermarkPosition, 9> watermarkPositions = {{
    {WatermarkPosition::topLeft, "topLeft", "Top Left"},
    {WatermarkPosition::topCenter, "topCenter", "Top Center"},
    {WatermarkPosition::topRight, "topRight", "Top Right"},
    {WatermarkPosition::middleLeft, "middleLeft", "Middle Left"},
    {WatermarkPosition::center, "center", "Center"},
    {WatermarkPosition::middleRight, "middleRight", "Middle Right"},
    {WatermarkPosition::bottomLeft, "bottomLeft", "Bottom Left"},
    {WatermarkPosition::bottomCenter, "bottomCenter", "Bottom Center"},
    {WatermarkPosition::bottomRight, "bottomRight", "Bottom Right"},
}};
constexpr const auto& enumTable(WatermarkPosition) {
    return watermarkPositions;
}

/// A mark burned into the screenshot. Initially what a new panel shows.
struct WatermarkSettings {
    WatermarkType type = WatermarkType::text;
    QString textContent = QStringLiteral("© Kestrio");
    std::optional<QByteArray> imageData;  ///< the bytes of an encoded picture
    WatermarkPosition position = WatermarkPosition::bottomRight;
    double opacity = 0.5;  ///< 0 to 1
    double scale = 0.15;   ///< share of the screenshot's width, at most 0.5
    double offsetX = 20;   ///< points of the screenshot, inward from the nearer edge
    double offsetY = 20;
    QString fontName = QStringLiteral("Helvetica Neue");
    CodableColor textColor = {1, 1, 1, 1};

    bool operator==(const WatermarkSettings&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("type", &WatermarkSettings::type),
                          jsonField("textContent", &WatermarkSettings::textContent),
                          jsonField("imageData", &WatermarkSettings::imageData),
                          jsonField("position", &WatermarkSettings::position),
                          jsonField("opacity", &WatermarkSettings::opacity),
                          jsonField("scale", &WatermarkSettings::scale),
                          jsonField("offsetX", &WatermarkSettings::offsetX),
                          jsonField("offsetY", &WatermarkSettings::offsetY),
                          jsonField("fontName", &WatermarkSettings::fontName),
                          jsonField("textColor", &WatermarkSettings::textColor));
    }
};

}  // namespace kestrio
