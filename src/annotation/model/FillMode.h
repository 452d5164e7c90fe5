#pragma once

#include "core/EnumTable.h"

namespace kestrio {

/// What is painted of a closed shape.
enum class FillMode { stroke, fill, both };

inline constexpr EnumTable<FillMode, 3> fillModes = {{
    {FillMode::stroke, "stroke", Kestrio::marked("Outline")},
    {FillMode::fill, "fill", Kestrio::marked("Fill")},
    {FillMode::both, "both", Kestrio::marked("Both")},
}};
constexpr const auto& enumTable(FillMode) {
    return fillModes;
}

constexpr bool isFilled(FillMode mode) {
    return mode != FillMode::stroke;
}

}  // namespace kestrio
