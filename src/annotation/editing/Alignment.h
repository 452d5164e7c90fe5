#pragma once

#include "core/EnumTable.h"

#include <QRectF>
#include <vector>

namespace kestrio {

enum class AlignmentType { left, centerH, right, top, centerV, bottom };

/// The names are those of the symbols that stand for them.
inline constexpr EnumTable<AlignmentType, 6> alignmentTypes = {{
    {AlignmentType::left, "left", "align.horizontal.left"},
    {AlignmentType::centerH, "centerH", "align.horizontal.center"},
    {AlignmentType::right, "right", "align.horizontal.right"},
    {AlignmentType::top, "top", "align.vertical.top"},
    {AlignmentType::centerV, "centerV", "align.vertical.center"},
    {AlignmentType::bottom, "bottom", "align.vertical.bottom"},
}};
constexpr const auto& enumTable(AlignmentType) {
    return alignmentTypes;
}

enum class DistributionAxis { horizontal, vertical };

inline constexpr EnumTable<DistributionAxis, 2> distributionAxes = {{
    {DistributionAxis::horizontal, "horizontal", Kestrio::marked("Distribute Horizontally")},
    {DistributionAxis::vertical, "vertical", Kestrio::marked("Distribute Vertically")},
}};
constexpr const auto& enumTable(DistributionAxis) {
    return distributionAxes;
}

/// The rectangles moved along one axis until their edges or middles agree.
std::vector<QRectF> aligned(std::vector<QRectF> rects, AlignmentType type);

/// The rectangles, at least three, moved along one axis until their centres are equally far apart;
/// the outermost stay.
std::vector<QRectF> distributed(std::vector<QRectF> rects, DistributionAxis axis);

}  // namespace kestrio
