#pragma once

#include "annotation/model/FillMode.h"
#include "core/CodableColor.h"

namespace kestrio {

enum class StrokeSize { small, medium, large, extraLarge };

inline constexpr EnumTable<StrokeSize, 4> strokeSizes = {{
    {StrokeSize::small, "small", Kestrio::marked("Small")},
    {StrokeSize::medium, "medium", Kestrio::marked("Medium")},
    {StrokeSize::large, "large", Kestrio::marked("Large")},
    {StrokeSize::extraLarge, "extraLarge", Kestrio::marked("Extra Large")},
}};
constexpr const auto& enumTable(StrokeSize) {
    return strokeSizes;
}

/// In points: 2, 4, 6 or 8.
constexpr double strokeWidth(StrokeSize size) {
    return 2.0 * (static_cast<int>(size) + 1);
}

/// The colours offered first: red, orange, yellow, green, blue, purple, pink, white, gray, black.
inline constexpr std::array<CodableColor, 10> quickColors = {{
    {1, 0.231, 0.188, 1},
    {1, 0.584, 0, 1},
    {1, 0.8, 0, 1},
    {0.157, 0.804, 0.255, 1},
    {0, 0.478, 1, 1},
    {0.686, 0.322, 0.871, 1},
    {1, 0.176, 0.333, 1},
    {1, 1, 1, 1},
    {0.557, 0.557, 0.576, 1},
    {0, 0, 0, 1},
}};

/// How the next record will look.
struct ToolSettings {
    CodableColor color = quickColors.front();
    StrokeSize strokeSize = StrokeSize::medium;
    FillMode fillMode = FillMode::stroke;

    bool operator==(const ToolSettings&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("color", &ToolSettings::color),
                          jsonField("strokeSize", &ToolSettings::strokeSize),
                          jsonField("fillMode", &ToolSettings::fillMode));
    }
};

}  // namespace kestrio
