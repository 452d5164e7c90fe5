#pragma once

#include "core/EnumTable.h"

namespace kestrio {

/// What an annotation is to its user. The highlighter has a type of its own, but no record.
enum class AnnotationType {
    arrow,
    rectangle,
    circle,
    text,
    number,
    brush,
    highlighter,
    blur,
    emoji,
    measurement
};

inline constexpr EnumTable<AnnotationType, 10> annotationTypes = {{
    {AnnotationType::arrow, "arrow"},
    {AnnotationType::rectangle, "rectangle"},
    {AnnotationType::circle, "circle"},
    {AnnotationType::text, "text"},
    {AnnotationType::number, "number"},
    {AnnotationType::brush, "brush"},
    {AnnotationType::highlighter, "highlighter"},
    {AnnotationType::blur, "blur"},
    {AnnotationType::emoji, "emoji"},
    {AnnotationType::measurement, "measurement"},
}};
constexpr const auto& enumTable(AnnotationType) {
    return annotationTypes;
}

}  // namespace kestrio
