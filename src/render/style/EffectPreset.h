#pragma once

#include "render/style/BackdropEffects.h"

namespace kestrio {

/// A named set of backdrop effects.
struct EffectPreset {
    QString id;
    QString name;  ///< English; views translate it
    double blur = 0;
    double noise = 0;
    double saturation = 100;

    bool operator==(const EffectPreset&) const = default;

    BackdropEffects effects() const { return {blur, noise, saturation}; }

    /// The built-in sets in display order.
    static const std::vector<EffectPreset>& all();

    static constexpr auto jsonFields() {
        return std::tuple(
            jsonField("id", &EffectPreset::id), jsonField("name", &EffectPreset::name),
            jsonField("blur", &EffectPreset::blur), jsonField("noise", &EffectPreset::noise),
            jsonField("saturation", &EffectPreset::saturation));
    }
};

}  // namespace kestrio
