#pragma once

#include "annotation/model/AnnotationType.h"
#include "core/CodableColor.h"

namespace kestrio {

/// A round badge with a number.
struct NumberAnnotation {
    QUuid id = {};
    QPointF center = {};
    qint64 number = 0;
    CodableColor color = {};
    double size = 0;  ///< diameter, points
    double strokeWidth = 0;

    AnnotationType type() const { return AnnotationType::number; }
    QRectF boundingRect() const;
    /// The largest badge in the middle of the rectangle.
    void reshape(const QRectF& rect);

    /// Colour and stroke width do not count.
    bool operator==(const NumberAnnotation& other) const;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("id", &NumberAnnotation::id),
                          jsonField("center", &NumberAnnotation::center),
                          jsonField("number", &NumberAnnotation::number),
                          jsonField("color", &NumberAnnotation::color),
                          jsonField("size", &NumberAnnotation::size),
                          jsonField("strokeWidth", &NumberAnnotation::strokeWidth));
    }
};

}  // namespace kestrio
