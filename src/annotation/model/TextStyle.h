#pragma once

#include "core/EnumTable.h"

#include <QFont>
#include <Qt>

namespace kestrio {

/// Where the lines of a text box stand in it.
enum class CodableTextAlignment { leading, center, trailing };

inline constexpr EnumTable<CodableTextAlignment, 3> codableTextAlignments = {{
    {CodableTextAlignment::leading, "leading"},
    {CodableTextAlignment::center, "center"},
    {CodableTextAlignment::trailing, "trailing"},
}};
constexpr const auto& enumTable(CodableTextAlignment) {
    return codableTextAlignments;
}

/// For a layout from left to right; Qt mirrors it in the other direction.
Qt::Alignment qtAlignment(CodableTextAlignment alignment);

/// The weights of a font, from the lightest to the heaviest.
enum class CodableFontWeight {
    ultraLight,
    thin,
    light,
    regular,
    medium,
    semibold,
    bold,
    heavy,
    black
};

inline constexpr EnumTable<CodableFontWeight, 9> codableFontWeights = {{
    {CodableFontWeight::ultraLight, "ultraLight"},
    {CodableFontWeight::thin, "thin"},
    {CodableFontWeight::light, "light"},
    {CodableFontWeight::regular, "regular"},
    {CodableFontWeight::medium, "medium"},
    {CodableFontWeight::semibold, "semibold"},
    {CodableFontWeight::bold, "bold"},
    {CodableFontWeight::heavy, "heavy"},
    {CodableFontWeight::black, "black"},
}};
constexpr const auto& enumTable(CodableFontWeight) {
    return codableFontWeights;
}

QFont::Weight fontWeight(CodableFontWeight weight);

}  // namespace kestrio
