#pragma once

#include "core/Json.h"
#include "render/style/StyleRange.h"

namespace kestrio {

/// How a picture fills the backdrop: covering it, wholly visible in it, or stretched to its shape.
enum class ImageScaleFit { fill, fit, stretch };

inline constexpr EnumTable<ImageScaleFit, 3> imageScaleFits = {{
    {ImageScaleFit::fill, "fill", Kestrio::marked("Fill")},
    {ImageScaleFit::fit, "fit", Kestrio::marked("Fit")},
    {ImageScaleFit::stretch, "stretch", Kestrio::marked("Stretch")},
}};
constexpr const auto& enumTable(ImageScaleFit) {
    return imageScaleFits;
}

/// A picture as backdrop.
struct ImageBackdropSettings {
    static constexpr StyleRange blurRange{0, 10, 0};
    static constexpr StyleRange opacityRange{0, 100, 100};

    std::optional<QByteArray> imageData;     ///< the bytes of an encoded picture
    std::optional<QString> imagePath;        ///< where they came from; never read again
    double blur = blurRange.standard;        ///< points
    double opacity = opacityRange.standard;  ///< percent
    ImageScaleFit scaleFit = ImageScaleFit::fill;

    bool operator==(const ImageBackdropSettings&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("imageData", &ImageBackdropSettings::imageData),
                          jsonField("imagePath", &ImageBackdropSettings::imagePath),
                          jsonField("blur", &ImageBackdropSettings::blur),
                          jsonField("opacity", &ImageBackdropSettings::opacity),
                          jsonField("scaleFit", &ImageBackdropSettings::scaleFit));
    }
};

}  // namespace kestrio
