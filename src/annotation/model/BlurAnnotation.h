#pragma once

#include "annotation/model/AnnotationType.h"
#include "core/CodableColor.h"

namespace kestrio {

/// How a blurred region hides what lies below it.
enum class BlurType { gaussian, pixelate, solid };

inline constexpr EnumTable<BlurType, 3> blurTypes = {{
    {BlurType::gaussian, "gaussian", Kestrio::marked("Gaussian")},
    {BlurType::pixelate, "pixelate", Kestrio::marked("Pixelate")},
    {BlurType::solid, "solid", Kestrio::marked("Solid")},
}};
constexpr const auto& enumTable(BlurType) {
    return blurTypes;
}

/// A region made unreadable.
struct BlurAnnotation {
    QUuid id = {};
    QRectF bounds = {};
    double blurRadius = 0;  ///< points
    CodableColor color = {};
    double strokeWidth = 0;
    BlurType blurType = BlurType::gaussian;
    double intensity = 0;  ///< 0 to 1

    AnnotationType type() const { return AnnotationType::blur; }
    QRectF boundingRect() const { return bounds; }
    void reshape(const QRectF& rect) { bounds = rect; }

    /// Colour and stroke width do not count.
    bool operator==(const BlurAnnotation& other) const;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("id", &BlurAnnotation::id),
                          jsonField("bounds", &BlurAnnotation::bounds),
                          jsonField("blurRadius", &BlurAnnotation::blurRadius),
                          jsonField("color", &BlurAnnotation::color),
                          jsonField("strokeWidth", &BlurAnnotation::strokeWidth),
                          jsonField("blurType", &BlurAnnotation::blurType),
                          jsonField("intensity", &BlurAnnotation::intensity));
    }
};

}  // namespace kestrio
