#pragma once

#include "core/Json.h"

namespace kestrio {

/// What a portrait effect does with its surroundings.
enum class PortraitEffectType { none, blur, stage };

inline constexpr EnumTable<PortraitEffectType, 3> portraitEffectTypes = {{
    {PortraitEffectType::none, "none", Kestrio::marked("None")},
    {PortraitEffectType::blur, "blur", Kestrio::marked("Blur")},
    {PortraitEffectType::stage, "stage", Kestrio::marked("Stage")},
}};
constexpr const auto& enumTable(PortraitEffectType) {
    return portraitEffectTypes;
}

/// Stored and carried with a backdrop; nothing renders it.
struct PortraitSettings {
    PortraitEffectType effectType = PortraitEffectType::none;
    double position = 0;
    double distance = 0;

    bool operator==(const PortraitSettings&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("effectType", &PortraitSettings::effectType),
                          jsonField("position", &PortraitSettings::position),
                          jsonField("distance", &PortraitSettings::distance));
    }
};

}  // namespace kestrio
