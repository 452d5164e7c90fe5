#include "editor/layout/ResponsiveLayoutManager.h"

namespace kestrio {

void ResponsiveLayoutManager::update(double width, double height) {
    constexpr double leastFullWidth = 280, leastCompactWidth = 200;
    set_availableWidth(width);
    set_availableHeight(height);
    set_currentMode(width >= leastFullWidth      ? LayoutMode::full
                    : width >= leastCompactWidth ? LayoutMode::compact
                                                 : LayoutMode::minimal);
}

}  // namespace kestrio
