#pragma once

#include "annotation/model/AnnotationType.h"
#include "annotation/model/RotationCodec.h"
#include "annotation/model/TextStyle.h"
#include "core/CodableColor.h"

namespace kestrio {

/// A box of text, turned about its centre.
struct TextAnnotation {
    QUuid id = {};
    QRectF bounds = {};  ///< before it is turned
    QString text = {};
    CodableColor color = {};
    double fontSize = 0;  ///< points
    CodableFontWeight fontWeight = CodableFontWeight::regular;
    std::optional<QString> fontFamily = {};  ///< none means the system font
    CodableTextAlignment alignment = CodableTextAlignment::leading;
    double strokeWidth = 0;  ///< points
    double rotation = 0;     ///< degrees, clockwise on the screen

    AnnotationType type() const { return AnnotationType::text; }
    QRectF boundingRect() const { return bounds; }
    void reshape(const QRectF& rect) { bounds = rect; }

    /// Colour, weight and alignment do not count.
    bool operator==(const TextAnnotation& other) const;

    static constexpr bool hasLateRotation = true;
    static constexpr auto jsonFields() {
        return std::tuple(
            jsonField("id", &TextAnnotation::id), jsonField("bounds", &TextAnnotation::bounds),
            jsonField("text", &TextAnnotation::text), jsonField("color", &TextAnnotation::color),
            jsonField("fontSize", &TextAnnotation::fontSize),
            jsonField("fontWeight", &TextAnnotation::fontWeight),
            jsonField("fontFamily", &TextAnnotation::fontFamily),
            jsonField("alignment", &TextAnnotation::alignment),
            jsonField("strokeWidth", &TextAnnotation::strokeWidth));
    }
};

}  // namespace kestrio
