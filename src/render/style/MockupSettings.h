#pragma once

#include "core/Json.h"
#include "render/style/StyleRange.h"

namespace kestrio {

/// How strong the shadow is.
enum class ShadowIntensity { low, medium, high };

inline constexpr EnumTable<ShadowIntensity, 3> shadowIntensities = {{
    {ShadowIntensity::low, "low", Kestrio::marked("Low")},
    {ShadowIntensity::medium, "medium", Kestrio::marked("Medium")},
    {ShadowIntensity::high, "high", Kestrio::marked("High")},
}};
constexpr const auto& enumTable(ShadowIntensity) {
    return shadowIntensities;
}

/// Where the light comes from, in the three-by-three order of its picker.
enum class LightSource {
    topLeft,
    top,
    topRight,
    left,
    center,
    right,
    bottomLeft,
    bottom,
    bottomRight
};

inline constexpr EnumTable<LightSource, 9> lightSources = {{
    {LightSource::topLeft, "topLeft", Kestrio::marked("Top Left")},
    {LightSource::top, "top", Kestrio::marked("Top")},
    {LightSource::topRight, "topRight", Kestrio::marked("Top Right")},
    {LightSource::left, "left", Kestrio::marked("Left")},
    {LightSource::center, "center", Kestrio::marked("Center")},
    {LightSource::right, "right", Kestrio::marked("Right")},
    {LightSource::bottomLeft, "bottomLeft", Kestrio::marked("Bottom Left")},
    {LightSource::bottom, "bottom", Kestrio::marked("Bottom")},
    {LightSource::bottomRight, "bottomRight", Kestrio::marked("Bottom Right")},
}};
constexpr const auto& enumTable(LightSource) {
    return lightSources;
}

/// Corners and shadow of the screenshot.
struct MockupSettings {
    static constexpr StyleRange cornerRadiusRange{0, 48, 12};

    double cornerRadius = cornerRadiusRange.standard;  ///< points; read without a frame only
    bool shadowEnabled = true;
    ShadowIntensity shadowIntensity = ShadowIntensity::medium;
    LightSource lightSource = LightSource::topLeft;

    bool operator==(const MockupSettings&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("cornerRadius", &MockupSettings::cornerRadius),
                          jsonField("shadowEnabled", &MockupSettings::shadowEnabled),
                          jsonField("shadowIntensity", &MockupSettings::shadowIntensity),
                          jsonField("lightSource", &MockupSettings::lightSource));
    }
};

}  // namespace kestrio
