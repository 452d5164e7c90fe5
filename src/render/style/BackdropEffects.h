#pragma once

#include "core/Json.h"
#include "render/style/StyleRange.h"

namespace kestrio {

/// Filters over the whole backdrop. Stored as given and clamped where they are rendered.
struct BackdropEffects {
    static constexpr StyleRange blurRange{0, 10, 0};
    static constexpr StyleRange noiseRange{0, 100, 0};
    static constexpr StyleRange saturationRange{0, 200, 100};

    double blur = blurRange.standard;  ///< points
    double noise = noiseRange.standard;
    double saturation = saturationRange.standard;  ///< percent

    bool operator==(const BackdropEffects&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("blur", &BackdropEffects::blur),
                          jsonField("noise", &BackdropEffects::noise),
                          jsonField("saturation", &BackdropEffects::saturation));
    }
};

}  // namespace kestrio
