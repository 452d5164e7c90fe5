#include "editor/layout/ResponsiveLayoutManager.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(ResponsiveLayout, TheWidthTellsTheMode) {
    ResponsiveLayoutManager layout;
    const std::pair<double, LayoutMode> rows[] = {
        {199.9, LayoutMode::minimal}, {280, LayoutMode::full}, {279.9, LayoutMode::compact},
        {200, LayoutMode::compact},   {900, LayoutMode::full},
    };
    for (const auto& [width, mode] : rows) {
        layout.update(width, 50);
        EXPECT_EQ(layout.currentMode(), mode) << width;
        EXPECT_EQ(layout.availableWidth(), width);
    }
    EXPECT_EQ(layout.availableHeight(), 50);
}

}  // namespace
}  // namespace kestrio
