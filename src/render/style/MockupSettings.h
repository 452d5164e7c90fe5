#pragma once

#include "core/Json.h"

namespace kestrio {

/// How strong the shadow is.
enum class ShadowIntensity { low, medium, high };

inline constexpr EnumTable<ShadowIntensity, 3> shadowIntensities = {{
    {ShadowIntensity::low, "low", "Low"},
    {ShadowIntensity::medium, "medium", "Medium"},
    {ShadowIntensity::high, "high", "High"},
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
    {LightSource::topLeft, "topLeft", "Top Left"},
    {LightSource::top, "top", "Top"},
    {LightSource::topRight, "topRight", "Top Right"},
    {LightSource::left, "left", "Left"},
    {LightSource::center, "center", "Center"},
    {LightSource::right, "right", "Right"},
    {LightSource::bottomLeft, "bottomLeft", "Bottom Left"},
    {LightSource::bottom, "bottom", "Bottom"},
    {LightSource::bottomRight, "bottomRight", "Bottom Right"},
}};
constexpr const auto& enumTable(LightSource) {
    return lightSources;
}

/// Corners and shadow of the screenshot.
struct MockupSettings {
    double cornerRadius = 12;  ///< points; read without a frame only
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
