#include "render/style/EffectPreset.h"

namespace kestrio {

namespace {

struct Row {
    const char* id;
    const char* name;
    double blur, noise, saturation;
};

constexpr Row rows[] = {
    {"none", Kestrio::marked("None"), 0, 0, 100},
    {"soft", Kestrio::marked("Soft"), 2, 5, 100},
    {"dreamy", Kestrio::marked("Dreamy"), 5, 10, 80},
    {"vintage", Kestrio::marked("Vintage"), 1, 20, 70},
    {"vivid", Kestrio::marked("Vivid"), 0, 0, 150},
    {"muted", Kestrio::marked("Muted"), 0, 5, 50},
    {"film", Kestrio::marked("Film"), 0.5, 15, 90},
    {"hazy", Kestrio::marked("Hazy"), 3, 8, 85},
    {"sharp", Kestrio::marked("Sharp"), 0, 0, 120},
    {"grainy", Kestrio::marked("Grainy"), 0, 30, 100},
    {"foggy", Kestrio::marked("Foggy"), 6, 5, 60},
    {"saturated", Kestrio::marked("Saturated"), 0, 0, 180},
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
