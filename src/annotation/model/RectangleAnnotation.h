#pragma once

#include "annotation/model/AnnotationType.h"
#include "annotation/model/FillMode.h"
#include "annotation/model/RotationCodec.h"
#include "core/CodableColor.h"

namespace kestrio {

/// A rectangle, turned about its centre.
struct RectangleAnnotation {
    QUuid id = {};
    QRectF bounds = {};  ///< before it is turned
    CodableColor color = {};
    double strokeWidth = 0;  ///< points
    FillMode fillMode = FillMode::stroke;
    double cornerRadius = 0;  ///< points
    double rotation = 0;      ///< degrees, clockwise on the screen

    AnnotationType type() const { return AnnotationType::rectangle; }
    QRectF boundingRect() const { return bounds; }
    void reshape(const QRectF& rect) { bounds = rect; }

    /// Colour does not count.
    bool operator==(const RectangleAnnotation& other) const;

    static constexpr bool hasLateRotation = true;
    static constexpr auto jsonFields() {
        return std::tuple(jsonField("id", &RectangleAnnotation::id),
                          jsonField("bounds", &RectangleAnnotation::bounds),
                          jsonField("color", &RectangleAnnotation::color),
                          jsonField("strokeWidth", &RectangleAnnotation::strokeWidth),
                          jsonField("fillMode", &RectangleAnnotation::fillMode),
                          jsonField("cornerRadius", &RectangleAnnotation::cornerRadius));
    }
};

}  // namespace kestrio
