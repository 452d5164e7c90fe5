#include "scrolling/overlays/PanelPlacement.h"
#include "scrolling/overlays/ScrollPositionIndicator.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

const QSize panel(240, 320);

Display displayAt(QRectF bounds, QMargins docks = {}) {
    Display display;
    display.bounds = bounds;
    display.visibleFrame = bounds.marginsRemoved(docks);
    return display;
}

const Display whole = displayAt({0, 0, 1600, 900}, {0, 30, 0, 0});

std::optional<QRect> placeFor(QRectF region, std::vector<Display> displays = {whole}) {
    const auto place = panelPlace(region, displays, panel);
    if (place) {
        EXPECT_FALSE(QRectF(*place).intersects(region.adjusted(-5, -5, 5, 5)));
        EXPECT_TRUE(std::any_of(displays.begin(), displays.end(), [&](const Display& each) {
            return each.visibleFrame.contains(QRectF(*place));
        }));
    }
    return place;
}

TEST(PanelPlace, IsTheFirstSideWithRoom) {
    EXPECT_EQ(placeFor({300, 200, 500, 400})->topLeft(), QPoint(814, 200));
    EXPECT_LT(placeFor({900, 200, 600, 400})->right(), 900);
    EXPECT_GT(placeFor({100, 50, 1400, 400})->top(), 450);
    EXPECT_LT(placeFor({100, 450, 1400, 440})->bottom(), 450);
    // Kept within what panels and docks leave free.
    EXPECT_EQ(placeFor({300, 0, 500, 200})->top(), 38);
    EXPECT_EQ(placeFor({300, 800, 500, 100})->bottom(), 891);
    EXPECT_GE(placeFor({0, 40, 1600, 300})->left(), 0);
    EXPECT_EQ(placeFor({300.5, 200.5, 500, 400})->left(), 815);
}

TEST(PanelPlace, IsOnAnotherDisplayOrNowhere) {
    const QRectF full(0, 0, 1600, 900);
    EXPECT_FALSE(placeFor(full));
    EXPECT_FALSE(placeFor({20, 40, 1560, 840}));
    EXPECT_FALSE(placeFor(full, {}));
    EXPECT_FALSE(placeFor(full, {whole, whole})) << "a mirror shows the region too";
    EXPECT_FALSE(placeFor(full, {whole, displayAt({1600, 0, 200, 200})})) << "too small";
    const Display right = displayAt({1600, 0, 1000, 900});
    EXPECT_EQ(placeFor(full, {whole, right})->left(), 1608);
    EXPECT_EQ(placeFor(full, {right, whole})->left(), 1608);
    EXPECT_LT(placeFor({300, 200, 500, 400}, {right, whole})->right(), 1600) << "its own has room";
}

TEST(ScrollIndicator, ThumbIsTheShareThatIsSeen) {
    ScrollPositionIndicator bar{.contentHeight = 1000, .visibleHeight = 250, .scrollOffset = 0};
    EXPECT_EQ(bar.thumb(104), QRectF(2, 2, 4, 25));
    bar.scrollOffset = 750;
    EXPECT_EQ(bar.thumb(104), QRectF(2, 77, 4, 25));
    bar.scrollOffset = 4000;
    EXPECT_EQ(bar.thumb(104).bottom(), 102) << "no further than the end";
    bar = {.contentHeight = 1e6, .visibleHeight = 100, .scrollOffset = 1e6 - 100};
    EXPECT_EQ(bar.thumb(104), QRectF(2, 82, 4, 20)) << "at least the minimum";
    EXPECT_EQ(bar.thumb(14).height(), 10) << "and no more than the track";
    EXPECT_TRUE(bar.thumb(3).isEmpty());
    bar = {.contentHeight = 100, .visibleHeight = 100};
    EXPECT_TRUE(bar.thumb(104).isEmpty());
    EXPECT_TRUE(ScrollPositionIndicator().thumb(104).isEmpty());
}

}  // namespace
}  // namespace kestrio
