#include "render/style/Theme.h"

namespace kestrio {

namespace {

BackdropSettings solid(double red, double green, double blue) {
    BackdropSettings backdrop;
    backdrop.solidColor = CodableColor{red, green, blue, 1};
    return backdrop;
}

BackdropSettings gradient(const char* preset, BackdropEffects effects = {}) {
    BackdropSettings backdrop;
    backdrop.type = BackdropType::gradient;
    backdrop.solidColor = std::nullopt;
    backdrop.gradientPreset = QString::fromLatin1(preset);
    backdrop.effects = effects;
    return backdrop;
}

BackdropSettings withEffects(BackdropSettings backdrop, BackdropEffects effects) {
    backdrop.effects = effects;
    return backdrop;
}

BackdropSettings withPattern(BackdropSettings backdrop, const PatternSettings& pattern) {
    backdrop.pattern = pattern;
    return backdrop;
}

constexpr MockupSettings lit(double cornerRadius, ShadowIntensity intensity,
                             LightSource light = LightSource::topLeft) {
    return {cornerRadius, true, intensity, light};
}

std::vector<PresetTheme> makePresets() {
    using enum FrameStyle;
    constexpr auto low = ShadowIntensity::low;
    constexpr auto medium = ShadowIntensity::medium;
    constexpr auto high = ShadowIntensity::high;
    const PatternSettings dots{PatternType::dots, 0.3, 0.5, {0.7, 0.7, 0.75, 0.5}};
    const PatternSettings grid{PatternType::grid, 0.2, 0.3, {0.8, 0.8, 0.85, 0.4}};
    const auto preset = [](const char* id, const char* name, const BackdropSettings& backdrop,
                           const MockupSettings& mockup, FrameStyle frame) {
        return PresetTheme{QString::fromLatin1(id), QString::fromLatin1(name), backdrop, mockup,
                           frame};
    };
    return {
        preset("clean", Kestrio::marked("Clean"), solid(1, 1, 1), lit(8, low), none),
        preset("dark", Kestrio::marked("Dark"), solid(0.1, 0.1, 0.15), lit(12, medium), macOS),
        preset("sunset", Kestrio::marked("Sunset"), gradient("sunset"),
               lit(16, high, LightSource::top), none),
        preset("ocean", Kestrio::marked("Ocean"), gradient("ocean"), lit(12, medium), safari),
        preset("lavender", Kestrio::marked("Lavender"), gradient("lavender"), lit(12, medium),
               none),
        preset("neon", Kestrio::marked("Neon"), gradient("neon"),
               lit(16, high, LightSource::center), arc),
        preset("forest", Kestrio::marked("Forest"), gradient("forest"), lit(8, medium), none),
        preset("midnight", Kestrio::marked("Midnight"), gradient("midnight"),
               lit(12, high, LightSource::top), macOS),
        preset("dreamy", Kestrio::marked("Dreamy"), gradient("sky", {3, 5, 90}),
               lit(20, low, LightSource::top), none),
        preset("vintage", Kestrio::marked("Vintage"),
               withEffects(solid(0.95, 0.92, 0.88), {0, 15, 70}), lit(4, low), none),
        preset("dotted", Kestrio::marked("Dotted"), withPattern(solid(0.95, 0.95, 0.97), dots),
               lit(12, medium), none),
        preset("grid", Kestrio::marked("Grid"), withPattern(solid(0.98, 0.98, 1), grid),
               lit(8, low), none),
    };
}

}  // namespace

Theme Theme::make(const QString& name, const EditorStyleSettings& style) {
    const Date now = Date::now();
    return {QUuid::createUuid(), name, style.backdrop, style.mockup, style.frameStyle, now, now};
}

Theme Theme::withStyle(const EditorStyleSettings& style) const {
    return {id, name, style.backdrop, style.mockup, style.frameStyle, createdAt, Date::now()};
}

const std::vector<PresetTheme>& PresetTheme::all() {
    static const std::vector<PresetTheme> presets = makePresets();
    return presets;
}

const PresetTheme* PresetTheme::find(const QString& id) {
    for (const PresetTheme& preset : all()) {
        if (preset.id == id) return &preset;
    }
    return nullptr;
}

}  // namespace kestrio
