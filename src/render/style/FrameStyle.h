#pragma once

#include "core/EnumTable.h"
#include "render/style/StyleRange.h"

#include <array>

namespace kestrio {

/// How much larger a frame's title bar may be drawn. Renders take any scale that is not below 0.
inline constexpr StyleRange frameScaleRange{0.5, 2, 1};

/// The imitation window around a screenshot.
enum class FrameStyle { none, macOS, safari, arc, windows, stack, stack2 };

inline constexpr EnumTable<FrameStyle, 7> frameStyles = {{
    {FrameStyle::none, "none", Kestrio::marked("None")},
    {FrameStyle::macOS, "macOS", "macOS"},
    {FrameStyle::safari, "safari", "Safari"},
    {FrameStyle::arc, "arc", "Arc"},
    {FrameStyle::windows, "windows", "Windows"},
    {FrameStyle::stack, "stack", Kestrio::marked("Stack")},
    {FrameStyle::stack2, "stack2", Kestrio::marked("Stack 2")},
}};
constexpr const auto& enumTable(FrameStyle) {
    return frameStyles;
}

/// The measures of a frame, in points before any scale.
struct FrameMetrics {
    FrameStyle style;
    double titleBarHeight;
    double cornerRadius;
    int backSheets;                 ///< sheets that show behind the window
    const char* accessibilityText;  ///< empty where the frame has none
};

/// How far each back sheet stands below and to the right of the one in front of it, in points.
inline constexpr double backSheetOffset = 8;

inline constexpr std::array<FrameMetrics, 7> frameMetricsTable = {{
    {FrameStyle::none, 0, 0, 0, ""},
    {FrameStyle::macOS, 28, 10, 0, Kestrio::marked("macOS window frame")},
    {FrameStyle::safari, 44, 10, 0, Kestrio::marked("Safari browser frame")},
    {FrameStyle::arc, 40, 12, 0, Kestrio::marked("Arc browser frame")},
    {FrameStyle::windows, 32, 8, 0, Kestrio::marked("Windows window frame")},
    {FrameStyle::stack, 28, 10, 1, ""},
    {FrameStyle::stack2, 28, 10, 2, ""},
}};

static_assert(
    [] {
        for (std::size_t i = 0; i < frameStyles.size(); ++i) {
            if (frameMetricsTable[i].style != frameStyles[i].value) return false;
        }
        return frameMetricsTable.size() == frameStyles.size();
    }(),
    "every frame style has its measures, in the same order");

constexpr const FrameMetrics& frameMetrics(FrameStyle style) {
    for (const FrameMetrics& row : frameMetricsTable) {
        if (row.style == style) return row;
    }
    return frameMetricsTable.front();
}

}  // namespace kestrio
