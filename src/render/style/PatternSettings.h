#pragma once

#include "core/CodableColor.h"
#include "render/style/StyleRange.h"

namespace kestrio {

/// The drawings that a backdrop can carry.
enum class PatternType { none, circles, waves, dots, rays, grid, stripes, noise };

inline constexpr EnumTable<PatternType, 8> patternTypes = {{
    {PatternType::none, "none", Kestrio::marked("None")},
    {PatternType::circles, "circles", Kestrio::marked("Circles")},
    {PatternType::waves, "waves", Kestrio::marked("Waves")},
    {PatternType::dots, "dots", Kestrio::marked("Dots")},
    {PatternType::rays, "rays", Kestrio::marked("Rays")},
    {PatternType::grid, "grid", Kestrio::marked("Grid")},
    {PatternType::stripes, "stripes", Kestrio::marked("Stripes")},
    {PatternType::noise, "noise", Kestrio::marked("Noise")},
}};
constexpr const auto& enumTable(PatternType) {
    return patternTypes;
}

/// A drawing on the backdrop's fill. Its initial values are what is shown where there is none.
struct PatternSettings {
    static constexpr StyleRange intensityRange{0, 1, 0.5};
    static constexpr StyleRange thicknessRange{0, 1, 1};

    PatternType type = PatternType::none;
    double intensity = intensityRange.standard;  ///< a factor on the colour's alpha
    double thickness = thicknessRange.standard;  ///< 1 and more is a line of 3 points
    CodableColor color = {0, 0, 0, 0.1};

    bool operator==(const PatternSettings&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("type", &PatternSettings::type),
                          jsonField("intensity", &PatternSettings::intensity),
                          jsonField("thickness", &PatternSettings::thickness),
                          jsonField("color", &PatternSettings::color));
    }
};

}  // namespace kestrio
