#pragma once

#include "annotation/model/AnnotationType.h"
#include "core/CodableColor.h"

namespace kestrio {

/// A line that shows its own length.
struct MeasurementAnnotation {
    QUuid id = {};
    QPointF startPoint = {};
    QPointF endPoint = {};
    CodableColor color = {};
    double strokeWidth = 0;  ///< points

    AnnotationType type() const { return AnnotationType::measurement; }
    QRectF boundingRect() const;
    /// Stretches both ends along; on an axis without extent they go to the rectangle's middle.
    void reshape(const QRectF& rect);

    /// Colour does not count.
    bool operator==(const MeasurementAnnotation& other) const;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("id", &MeasurementAnnotation::id),
                          jsonField("startPoint", &MeasurementAnnotation::startPoint),
                          jsonField("endPoint", &MeasurementAnnotation::endPoint),
                          jsonField("color", &MeasurementAnnotation::color),
                          jsonField("strokeWidth", &MeasurementAnnotation::strokeWidth));
    }
};

}  // namespace kestrio
