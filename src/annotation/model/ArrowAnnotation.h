#pragma once

#include "annotation/model/AnnotationType.h"
#include "core/CodableColor.h"

namespace kestrio {

/// An arrow, straight or bent through its control points.
struct ArrowAnnotation {
    QUuid id = {};
    QPointF startPoint = {};
    QPointF endPoint = {};
    std::vector<QPointF> controlPoints = {};  ///< from start to end; empty for a straight arrow
    CodableColor color = {};
    double strokeWidth = 0;  ///< points

    AnnotationType type() const { return AnnotationType::arrow; }
    /// Around all points, a trace wider and higher, so that a horizontal or vertical arrow has
    /// area.
    QRectF boundingRect() const;
    /// Stretches every point along; nothing while the present rectangle lacks area.
    void reshape(const QRectF& rect);

    /// Colour does not count.
    bool operator==(const ArrowAnnotation& other) const;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("id", &ArrowAnnotation::id),
                          jsonField("startPoint", &ArrowAnnotation::startPoint),
                          jsonField("endPoint", &ArrowAnnotation::endPoint),
                          jsonField("controlPoints", &ArrowAnnotation::controlPoints),
                          jsonField("color", &ArrowAnnotation::color),
                          jsonField("strokeWidth", &ArrowAnnotation::strokeWidth));
    }
};

}  // namespace kestrio
