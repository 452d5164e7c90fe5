#include "annotation/model/BrushAnnotation.h"

#include "annotation/model/Geometry.h"

namespace kestrio {

QRectF BrushAnnotation::boundingRect() const {
    return enclosingRect(points);
}

void BrushAnnotation::reshape(const QRectF& rect) {
    const QRectF old = boundingRect();
    if (!(old.width() > 0 && old.height() > 0)) return;
    for (QPointF& point : points)
        point = mapped(point, old, rect);
}

bool BrushAnnotation::operator==(const BrushAnnotation& other) const {
    return id == other.id && identical(points, other.points) &&
           isHighlighter == other.isHighlighter && strokeWidth == other.strokeWidth;
}

namespace {

constexpr auto brushFields =
    std::tuple(jsonField("id", &BrushAnnotation::id), jsonField("points", &BrushAnnotation::points),
               jsonField("color", &BrushAnnotation::color),
               jsonField("strokeWidth", &BrushAnnotation::strokeWidth),
               jsonField("isHighlighter", &BrushAnnotation::isHighlighter));

}  // namespace

JsonValue JsonCodec<BrushAnnotation>::encode(const BrushAnnotation& stroke) {
    JsonValue object = JsonValue::object();
    std::apply([&](const auto&... field) { (detail::encodeField(object, stroke, field), ...); },
               brushFields);
    return object;
}

BrushAnnotation JsonCodec<BrushAnnotation>::decode(const JsonReader& reader) {
    BrushAnnotation stroke;
    std::apply([&](const auto&... field) { (detail::decodeField(reader, stroke, field), ...); },
               brushFields);
    if (stroke.points.size() > BrushAnnotation::maxPointCount) {
        stroke.points.resize(BrushAnnotation::maxPointCount);
    }
    return stroke;
}

}  // namespace kestrio
