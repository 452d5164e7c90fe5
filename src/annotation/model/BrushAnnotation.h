#pragma once

#include "annotation/model/AnnotationType.h"
#include "core/CodableColor.h"

namespace kestrio {

/// A freehand stroke; with a broad translucent pen it is a highlighter.
struct BrushAnnotation {
    /// Longer strokes are cut to their beginning when they are made and when they are read.
    static constexpr std::size_t maxPointCount = 10000;

    QUuid id = {};
    std::vector<QPointF> points = {};
    CodableColor color = {};
    double strokeWidth = 0;  ///< points
    bool isHighlighter = false;

    AnnotationType type() const {
        return isHighlighter ? AnnotationType::highlighter : AnnotationType::brush;
    }
    /// The zero rectangle for a stroke without points.
    QRectF boundingRect() const;
    /// Stretches every point along; nothing while the present rectangle lacks area.
    void reshape(const QRectF& rect);

    /// Colour does not count.
    bool operator==(const BrushAnnotation& other) const;
};

template <>
struct JsonCodec<BrushAnnotation> {
    static JsonValue encode(const BrushAnnotation& stroke);
    static BrushAnnotation decode(const JsonReader& reader);
};

}  // namespace kestrio
