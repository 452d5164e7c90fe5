#pragma once

#include "annotation/model/AnyAnnotation.h"

namespace kestrio {

/// The handles of a record that is selected alone.
enum class HandleSet {
    ends,             ///< its two points
    corners,          ///< of its bounds
    cornersAndEdges,  ///< of its bounds
};

/// What is typed into a record where it stands.
enum class InPlaceEditor { none, text, number };

/// In what one kind differs from another beside its record, its painter and its eraser.
struct AnnotationKind {
    TypeKey key;
    HandleSet handles;
    InPlaceEditor editor = InPlaceEditor::none;
    bool canRotate = false;        ///< about the middle of its bounds, by its field `rotation`
    bool keepsProportion = false;  ///< is as wide as high
    /// Changes the picture and nothing beside it, so that it stays within it.
    bool isPictureBound = false;
    /// What it paints may flow out of its bounds, further than heads and labels reach.
    bool outgrowsBounds = false;
};

inline constexpr std::array<AnnotationKind, typeKeys.size()> annotationKinds = {{
    {.key = TypeKey::arrow, .handles = HandleSet::ends},
    {.key = TypeKey::rectangle, .handles = HandleSet::cornersAndEdges, .canRotate = true},
    {.key = TypeKey::circle, .handles = HandleSet::corners, .keepsProportion = true},
    {.key = TypeKey::text,
     .handles = HandleSet::cornersAndEdges,
     .editor = InPlaceEditor::text,
     .canRotate = true,
     .outgrowsBounds = true},
    {.key = TypeKey::number,
     .handles = HandleSet::corners,
     .editor = InPlaceEditor::number,
     .keepsProportion = true},
    {.key = TypeKey::brush, .handles = HandleSet::corners},
    {.key = TypeKey::blur, .handles = HandleSet::cornersAndEdges, .isPictureBound = true},
    {.key = TypeKey::emoji,
     .handles = HandleSet::corners,
     .keepsProportion = true,
     .outgrowsBounds = true},
    {.key = TypeKey::measurement, .handles = HandleSet::ends},
}};

static_assert(
    [] {
        for (std::size_t i = 0; i < annotationKinds.size(); ++i)
            if (annotationKinds[i].key != static_cast<TypeKey>(i)) return false;
        return true;
    }(),
    "every kind has its row, in the order of the keys");

inline const AnnotationKind& kindOf(const AnyAnnotation& annotation) {
    return annotationKinds[static_cast<std::size_t>(annotation.typeKey())];
}

/// How far a record is turned with its bounds, in degrees clockwise; 0 for kinds that are not.
inline double rotationOf(const AnyAnnotation& annotation) {
    if (!kindOf(annotation).canRotate) return 0;
    return annotation.visit([](const auto& record) {
        if constexpr (requires { record.rotation; }) return static_cast<double>(record.rotation);
        return 0.0;
    });
}

/// Nothing happens to kinds that do not rotate.
inline void setRotation(AnyAnnotation& annotation, double degrees) {
    if (!kindOf(annotation).canRotate) return;
    annotation.visit([degrees](auto& record) {
        if constexpr (requires { record.rotation; }) record.rotation = degrees;
    });
}

}  // namespace kestrio
