#pragma once

#include "core/CodableColor.h"
#include "render/style/StyleRange.h"

namespace kestrio {

/// What a watermark is made of.
enum class WatermarkType { text, image };

inline constexpr EnumTable<WatermarkType, 2> watermarkTypes = {{
    {WatermarkType::text, "text", Kestrio::marked("Text")},
    {WatermarkType::image, "image", Kestrio::marked("Image")},
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
    {WatermarkPosition::topLeft, "topLeft", Kestrio::marked("Top Left")},
    {WatermarkPosition::topCenter, "topCenter", Kestrio::marked("Top Center")},
    {WatermarkPosition::topRight, "topRight", Kestrio::marked("Top Right")},
    {WatermarkPosition::middleLeft, "middleLeft", Kestrio::marked("Middle Left")},
    {WatermarkPosition::center, "center", Kestrio::marked("Center")},
    {WatermarkPosition::middleRight, "middleRight", Kestrio::marked("Middle Right")},
    {WatermarkPosition::bottomLeft, "bottomLeft", Kestrio::marked("Bottom Left")},
    {WatermarkPosition::bottomCenter, "bottomCenter", Kestrio::marked("Bottom Center")},
    {WatermarkPosition::bottomRight, "bottomRight", Kestrio::marked("Bottom Right")},
}};
constexpr const auto& enumTable(WatermarkPosition) {
    return watermarkPositions;
}

/// A mark burned into the screenshot. Initially what a new panel shows.
struct WatermarkSettings {
    static constexpr StyleRange opacityRange{0, 1, 0.5};
    static constexpr StyleRange scaleRange{0.02, 0.5, 0.15};
    static constexpr StyleRange offsetRange{0, 200, 20};

    WatermarkType type = WatermarkType::text;
    QString textContent = QStringLiteral("© Kestrio");
    std::optional<QByteArray> imageData;  ///< the bytes of an encoded picture
    WatermarkPosition position = WatermarkPosition::bottomRight;
    double opacity = opacityRange.standard;
    double scale =
        scaleRange.standard;  ///< share of the screenshot's width; less is drawn as stored
    double offsetX =
        offsetRange.standard;  ///< points of the screenshot, inward from the nearer edge
    double offsetY = offsetRange.standard;
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
