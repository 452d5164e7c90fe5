#pragma once

#include "annotation/model/AnnotationType.h"
#include "annotation/model/FillMode.h"
#include "core/CodableColor.h"

namespace kestrio {

/// A circle; never an ellipse.
struct CircleAnnotation {
    QUuid id = {};
    QPointF center = {};
    double radius = 0;  ///< points
    CodableColor color = {};
    double strokeWidth = 0;  ///< points
    FillMode fillMode = FillMode::stroke;

    AnnotationType type() const { return AnnotationType::circle; }
    QRectF boundingRect() const;
    /// The largest circle in the middle of the rectangle.
    void reshape(const QRectF& rect);

    /// Colour does not count.
    bool operator==(const CircleAnnotation& other) const;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("id", &CircleAnnotation::id),
                          jsonField("center", &CircleAnnotation::center),
                          jsonField("radius", &CircleAnnotation::radius),
                          jsonField("color", &CircleAnnotation::color),
                          jsonField("strokeWidth", &CircleAnnotation::strokeWidth),
                          jsonField("fillMode", &CircleAnnotation::fillMode));
    }
};

}  // namespace kestrio
