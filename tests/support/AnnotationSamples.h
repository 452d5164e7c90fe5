#pragma once

#include "annotation/model/AnyAnnotation.h"

namespace kestrio {

/// One annotation of each kind, and a highlighter, with fresh ids and values of their own in every
/// field.
inline std::vector<AnyAnnotation> oneOfEach() {
    const CodableColor color{0.25, 0.5, 0.75, 1};
    const auto id = [] { return QUuid::createUuid(); };
    return {
        ArrowAnnotation{id(), {1, 2}, {31, 42}, {{10, 50}}, color, 3},
        RectangleAnnotation{id(), {5, 6, 70, 80}, color, 2, FillMode::both, 4, 30},
        CircleAnnotation{id(), {50, 60}, 20, color, 4, FillMode::fill},
        TextAnnotation{id(),
                       {7, 8, 100, 40},
                       QStringLiteral("Größe"),
                       color,
                       16,
                       CodableFontWeight::semibold,
                       QStringLiteral("Inter"),
                       CodableTextAlignment::trailing,
                       1,
                       45},
        NumberAnnotation{id(), {30, 40}, 7, color, 32, 1},
        BrushAnnotation{id(), {{1, 1}, {20, 30}, {40, 5}}, color, 6, false},
        BrushAnnotation{id(), {{3, 3}, {60, 9}}, color, 12, true},
        BlurAnnotation{id(), {9, 9, 50, 30}, 10, color, 1, BlurType::pixelate, 0.5},
        EmojiAnnotation{id(), {80, 90}, QStringLiteral("🎯"), 48, color, 1, 15},
        MeasurementAnnotation{id(), {100, 10}, {20, 70}, color, 2},
    };
}

}  // namespace kestrio
