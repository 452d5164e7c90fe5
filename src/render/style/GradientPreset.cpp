#include "render/style/GradientPreset.h"

namespace kestrio {

namespace {

struct Rgb {
    double red, green, blue;
};

struct Row {
    const char* id;
    const char* name;
    Rgb first, last;
    CodableUnitPoint start, end;
};

constexpr CodableUnitPoint topLeft{0, 0}, bottomRight{1, 1};
constexpr CodableUnitPoint top{0.5, 0}, bottom{0.5, 1};
constexpr CodableUnitPoint left{0, 0.5}, right{1, 0.5};

constexpr Row rows[] = {
    {"sunset", Kestrio::marked("Sunset"), {1, 0.6, 0.2}, {1, 0.4, 0.6}, topLeft, bottomRight},
    {"fire", Kestrio::marked("Fire"), {1, 0.3, 0.1}, {1, 0.7, 0}, bottom, top},
    {"rose", Kestrio::marked("Rose"), {0.9, 0.4, 0.5}, {1, 0.7, 0.7}, topLeft, bottomRight},
    {"peach", Kestrio::marked("Peach"), {1, 0.8, 0.6}, {1, 0.6, 0.5}, top, bottom},
    {"coral", Kestrio::marked("Coral"), {1, 0.5, 0.4}, {1, 0.7, 0.5}, left, right},
    {"ocean", Kestrio::marked("Ocean"), {0, 0.5, 1}, {0, 0.8, 0.9}, top, bottom},
    {"sky", Kestrio::marked("Sky"), {0.5, 0.8, 1}, {0.9, 0.95, 1}, top, bottom},
    {"midnight", Kestrio::marked("Midnight"), {0.1, 0.1, 0.3}, {0.2, 0.2, 0.5}, top, bottom},
    {"arctic", Kestrio::marked("Arctic"), {0.7, 0.9, 1}, {0.9, 0.95, 1}, topLeft, bottomRight},
    {"deepSea", Kestrio::marked("Deep Sea"), {0, 0.2, 0.4}, {0, 0.4, 0.6}, top, bottom},
    {"forest", Kestrio::marked("Forest"), {0.2, 0.6, 0.3}, {0.1, 0.4, 0.3}, top, bottom},
    {"moss", Kestrio::marked("Moss"), {0.4, 0.6, 0.3}, {0.3, 0.5, 0.2}, topLeft, bottomRight},
    {"autumn", Kestrio::marked("Autumn"), {0.8, 0.5, 0.2}, {0.6, 0.3, 0.1}, top, bottom},
    {"earth", Kestrio::marked("Earth"), {0.5, 0.4, 0.3}, {0.3, 0.25, 0.2}, top, bottom},
    {"spring", Kestrio::marked("Spring"), {0.6, 0.9, 0.5}, {0.4, 0.8, 0.6}, topLeft, bottomRight},
    {"lavender",
     Kestrio::marked("Lavender"),
     {0.7, 0.5, 0.9},
     {0.9, 0.6, 0.8},
     topLeft,
     bottomRight},
    {"neon", Kestrio::marked("Neon"), {1, 0, 0.5}, {0, 1, 1}, left, right},
    {"aurora", Kestrio::marked("Aurora"), {0, 0.8, 0.6}, {0.5, 0.2, 0.8}, topLeft, bottomRight},
    {"candy", Kestrio::marked("Candy"), {1, 0.4, 0.7}, {0.6, 0.4, 1}, left, right},
    {"electric", Kestrio::marked("Electric"), {0, 0.6, 1}, {0.8, 0, 1}, topLeft, bottomRight},
    {"silver", Kestrio::marked("Silver"), {0.8, 0.8, 0.85}, {0.6, 0.6, 0.65}, top, bottom},
    {"charcoal", Kestrio::marked("Charcoal"), {0.3, 0.3, 0.35}, {0.15, 0.15, 0.2}, top, bottom},
    {"cream", Kestrio::marked("Cream"), {1, 0.98, 0.94}, {0.95, 0.9, 0.85}, top, bottom},
    {"slate", Kestrio::marked("Slate"), {0.4, 0.45, 0.5}, {0.25, 0.3, 0.35}, topLeft, bottomRight},
};

struct GroupRow {
    const char* id;
    const char* name;
};

constexpr GroupRow groupRows[] = {
    {"warm", Kestrio::marked("Warm")},       {"cool", Kestrio::marked("Cool")},
    {"nature", Kestrio::marked("Nature")},   {"vibrant", Kestrio::marked("Vibrant")},
    {"neutral", Kestrio::marked("Neutral")},
};

constexpr std::size_t groupSize = 5;

CodableColor opaque(const Rgb& colour) {
    return {colour.red, colour.green, colour.blue, 1};
}

std::vector<GradientPreset> makePresets() {
    std::vector<GradientPreset> presets;
    for (const Row& row : rows) {
        presets.push_back({QString::fromLatin1(row.id),
                           QString::fromLatin1(row.name),
                           {opaque(row.first), opaque(row.last)},
                           row.start,
                           row.end});
    }
    return presets;
}

std::vector<GradientGroup> makeGroups() {
    const auto& presets = GradientPreset::all();
    std::vector<GradientGroup> groups;
    for (const GroupRow& row : groupRows) {
        const auto first = presets.begin() + static_cast<std::ptrdiff_t>(groups.size() * groupSize);
        const bool isLast = groups.size() + 1 == std::size(groupRows);
        groups.push_back({QString::fromLatin1(row.id),
                          QString::fromLatin1(row.name),
                          {first, isLast ? presets.end() : first + groupSize}});
    }
    return groups;
}

}  // namespace

const std::vector<GradientPreset>& GradientPreset::all() {
    static const std::vector<GradientPreset> presets = makePresets();
    return presets;
}

const GradientPreset* GradientPreset::find(const QString& id) {
    for (const GradientPreset& preset : all()) {
        if (preset.id == id) return &preset;
    }
    return nullptr;
}

const std::vector<GradientGroup>& GradientGroup::all() {
    static const std::vector<GradientGroup> groups = makeGroups();
    return groups;
}

}  // namespace kestrio
