#pragma once

#include "core/CodableColor.h"
#include "render/style/BackdropEffects.h"
#include "render/style/ImageBackdropSettings.h"
#include "render/style/OverlaySettings.h"
#include "render/style/PatternSettings.h"
#include "render/style/PortraitSettings.h"
#include "render/style/StyleRange.h"

namespace kestrio {

/// What fills the backdrop.
enum class BackdropType { none, solid, gradient, image };

inline constexpr EnumTable<BackdropType, 4> backdropTypes = {{
    {BackdropType::none, "none", Kestrio::marked("None")},
    {BackdropType::solid, "solid", Kestrio::marked("Solid")},
    {BackdropType::gradient, "gradient", Kestrio::marked("Gradient")},
    {BackdropType::image, "image", Kestrio::marked("Image")},
}};
constexpr const auto& enumTable(BackdropType) {
    return backdropTypes;
}

/// The picture behind a screenshot. Initially what a new editor shows. Numbers are kept as stored
/// and clamped where they are rendered.
struct BackdropSettings {
    static constexpr StyleRange opacityRange{0, 1, 1};
    static constexpr StyleRange paddingRange{0, 100, 32};

    BackdropType type = BackdropType::solid;
    std::optional<CodableColor> solidColor = CodableColor{0.2, 0.2, 0.3, 1};
    std::optional<QString> gradientPreset;  ///< id in GradientPreset::all()
    /// Wins over `gradientPreset` when it has two colours or more.
    std::optional<std::vector<CodableColor>> customGradientColors;
    double opacity = opacityRange.standard;
    double padding = paddingRange.standard;  ///< points
    BackdropEffects effects;
    std::optional<PatternSettings> pattern;
    std::optional<OverlaySettings> overlay;
    std::optional<ImageBackdropSettings> imageSettings;
    std::optional<PortraitSettings> portrait;
    /// The canvas grows by padding and frame, so that the screenshot is not resampled. None is off.
    std::optional<bool> keepPixels;

    bool operator==(const BackdropSettings&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(
            jsonField("type", &BackdropSettings::type),
            jsonField("solidColor", &BackdropSettings::solidColor),
            jsonField("gradientPreset", &BackdropSettings::gradientPreset),
            jsonField("customGradientColors", &BackdropSettings::customGradientColors),
            jsonField("opacity", &BackdropSettings::opacity),
            jsonField("padding", &BackdropSettings::padding),
            jsonField("effects", &BackdropSettings::effects),
            jsonField("pattern", &BackdropSettings::pattern),
            jsonField("overlay", &BackdropSettings::overlay),
            jsonField("imageSettings", &BackdropSettings::imageSettings),
            jsonField("portrait", &BackdropSettings::portrait),
            jsonField("keepPixels", &BackdropSettings::keepPixels));
    }
};

}  // namespace kestrio
