#pragma once

#include "core/Json.h"
#include "render/style/StyleRange.h"

namespace kestrio {

/// The shapes that light and shade over a picture come in.
enum class OverlayType { none, diagonalShadow, naturalShadow, softGlow, vignette };

inline constexpr EnumTable<OverlayType, 5> overlayTypes = {{
    {OverlayType::none, "none", Kestrio::marked("None")},
    {OverlayType::diagonalShadow, "diagonalShadow", Kestrio::marked("Diagonal Shadow")},
    {OverlayType::naturalShadow, "naturalShadow", Kestrio::marked("Natural Shadow")},
    {OverlayType::softGlow, "softGlow", Kestrio::marked("Soft Glow")},
    {OverlayType::vignette, "vignette", Kestrio::marked("Vignette")},
}};
constexpr const auto& enumTable(OverlayType) {
    return overlayTypes;
}

/// In front of the screenshot, or behind it as part of the backdrop.
enum class OverlayPosition { overlay, underlay };

inline constexpr EnumTable<OverlayPosition, 2> overlayPositions = {{
    {OverlayPosition::overlay, "overlay", Kestrio::marked("Overlay")},
    {OverlayPosition::underlay, "underlay", Kestrio::marked("Underlay")},
}};
constexpr const auto& enumTable(OverlayPosition) {
    return overlayPositions;
}

/// A gradient of light or shade. Its initial values are what is shown where there is none.
struct OverlaySettings {
    static constexpr StyleRange opacityRange{0, 100, 10};

    OverlayType type = OverlayType::none;
    double opacity = opacityRange.standard;  ///< percent
    OverlayPosition position = OverlayPosition::overlay;

    bool operator==(const OverlaySettings&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("type", &OverlaySettings::type),
                          jsonField("opacity", &OverlaySettings::opacity),
                          jsonField("position", &OverlaySettings::position));
    }
};

}  // namespace kestrio
