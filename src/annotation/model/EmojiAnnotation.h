#pragma once

#include "annotation/model/AnnotationType.h"
#include "core/CodableColor.h"

namespace kestrio {

/// A pictogram from the emoji font.
struct EmojiAnnotation {
    QUuid id = {};
    QPointF center = {};
    QString emoji = {};
    double size = 0;  ///< points
    CodableColor color = {};
    double strokeWidth = 0;
    double rotation = 0;  ///< degrees, clockwise on the screen

    AnnotationType type() const { return AnnotationType::emoji; }
    QRectF boundingRect() const;
    /// The largest one in the middle of the rectangle.
    void reshape(const QRectF& rect);

    /// Colour and stroke width do not count.
    bool operator==(const EmojiAnnotation& other) const;

    static constexpr auto jsonFields() {
        return std::tuple(
            jsonField("id", &EmojiAnnotation::id), jsonField("center", &EmojiAnnotation::center),
            jsonField("emoji", &EmojiAnnotation::emoji), jsonField("size", &EmojiAnnotation::size),
            jsonField("color", &EmojiAnnotation::color),
            jsonField("strokeWidth", &EmojiAnnotation::strokeWidth),
            jsonField("rotation", &EmojiAnnotation::rotation));
    }
};

}  // namespace kestrio
