#pragma once

#include "core/Json.h"

namespace kestrio {

/// Filters over the whole backdrop. Stored as given and clamped where they are rendered.
struct BackdropEffects {
    double blur = 0;          ///< 0 to 10, points
    double noise = 0;         ///< 0 to 100
    double saturation = 100;  ///< 0 to 200, 100 is neutral

    bool operator==(const BackdropEffects&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("blur", &BackdropEffects::blur),
                          jsonField("noise", &BackdropEffects::noise),
                          jsonField("saturation", &BackdropEffects::saturation));
    }
};

}  // namespace kestrio
