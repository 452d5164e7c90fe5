#pragma once

#include "core/EnumTable.h"
#include "core/Published.h"

#include <QObject>

namespace kestrio {

/// How much of the panel beside the canvas there is room for.
enum class LayoutMode { full, compact, minimal };

inline constexpr EnumTable<LayoutMode, 3> layoutModes = {{
    {LayoutMode::full, "full"},
    {LayoutMode::compact, "compact"},
    {LayoutMode::minimal, "minimal"},
}};
constexpr const auto& enumTable(LayoutMode) {
    return layoutModes;
}

/// Says which of the panel's views fit. Sizes are in points. Main thread.
class ResponsiveLayoutManager : public QObject {
    Q_OBJECT
    PUBLISHED(LayoutMode, currentMode, LayoutMode::full)
    PUBLISHED(double, availableWidth, 280)
    PUBLISHED(double, availableHeight, 600)

  public:
    using QObject::QObject;

    /// Called when the panel appears and when its size changes.
    Q_INVOKABLE void update(double width, double height);
};

}  // namespace kestrio
