#include "render/style/EffectPreset.h"

namespace kestrio {

namespace {

struct Row {
    const char* id;
    const char* name;
    double blur, noise, saturation;
};

constexpr Row rows[] = {
    {"none", "None", 0, 0, 100},     {"soft", "Soft", 2, 5, 100},
    {"dreamy", "Dreamy", 5, 10, 80}, {"vintage", "Vintage", 1, 20, 70},
    {"vivid", "Vivid", 0, 0, 150},   {"muted", "Muted", 0, 5, 50},
    {"film", "Film", 0.5, 15, 90},   {"hazy", "Hazy", 3, 8, 85},
    {"sharp", "Sharp", 0, 0, 120},   {"grainy", "Grainy", 0, 30, 100},
    {"foggy", "Foggy", 6, 5, 60},    {"saturated", "Saturated", 0, 0, 180},
};

std::vector<EffectPreset> makePresets() {
    std::vector<EffectPreset> presets;
    for (const Row& row : rows) {
        presets.push_back({QString::fromLatin1(row.id), QString::fromLatin1(row.name), row.blur,
                           row.noise, row.saturation});
    }
    return presets;
}

}  // namespace

const std::vector<EffectPreset>& EffectPreset::all() {
    static const std::vector<EffectPreset> presets = makePresets();
    return presets;
}

}  // namespace kestrio
