#pragma once

#include "core/EnumTable.h"

namespace kestrio {

/// What is painted of a closed shape.
enum class FillMode { stroke, fill, both };

inline constexpr EnumTable<FillMode, 3> fillModes = {{
    {FillMode::stroke, "stroke", "Outline"},
    {FillMode::fill, "fill", "Fill"},
    {FillMode::both, "both", "Both"},
}};
constexpr const auto& enumTable(FillMode) {
    return fillModes;
}

constexpr bool isFilled(FillMode mode) {
    return mode != FillMode::stroke;
}

}  // namespace kestrio
