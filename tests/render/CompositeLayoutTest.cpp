#include "render/CompositeLayout.h"

#include <gtest/gtest.h>

#include <random>

namespace kestrio {
namespace {

CompositeLayout layoutOf(QSizeF canvas, double density, QSizeF image, double padding) {
    CompositeLayout layout;
    layout.canvasSize = canvas;
    layout.outputSize = canvas * density;
    layout.imageSize = image;
    layout.padding = padding;
    return layout;
}

TEST(CompositeLayout, RandomLayoutsKeepTheScreenshotInsideAndInShape) {
    std::mt19937 random(7);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    for (int i = 0; i < 5000; ++i) {
        CompositeLayout layout = layoutOf({between(1, 4000), between(1, 4000)}, between(1, 4),
                                          {between(1, 4000), between(1, 4000)}, between(0, 100));
        layout.frameStyle = frameStyles[random() % frameStyles.size()].value;
        layout.frameScale = between(-0.5, 3);
        const QRectF content = contentRect(layout);
        if (content.isEmpty()) continue;
        const double slack = 1e-6 * layout.outputSize.width() + 1e-6;
        const QPointF padding = scaledPadding(layout);
        const double bar =
            layout.titleBarHeight() * layout.outputSize.height() / layout.canvasSize.height();
        EXPECT_GE(content.left(), padding.x() - slack);
        EXPECT_GE(content.top() - bar, padding.y() - slack);
        EXPECT_LE(content.right(), layout.outputSize.width() - padding.x() + slack);
        EXPECT_LE(content.bottom(), layout.outputSize.height() - padding.y() + slack);
        EXPECT_NEAR(content.width() / content.height() /
                        (layout.imageSize.width() / layout.imageSize.height()),
                    1, 1e-9);
        const bool fillsOneAxis =
            content.width() >= layout.outputSize.width() - 2 * padding.x() - slack ||
            content.height() >= layout.outputSize.height() - 2 * padding.y() - bar - slack;
        EXPECT_TRUE(fillsOneAxis);
    }
}

TEST(CompositeLayout, KnownPlaces) {
    CompositeLayout layout = layoutOf({1000, 600}, 2, {1000, 600}, 50);
    EXPECT_EQ(layout.outputPixels(), QSize(2000, 1200));
    EXPECT_GE(contentRect(layout).left(), 100);
    EXPECT_EQ(layout.backdropScale(), 2);

    layout.padding = 0;
    const double plain = contentRect(layout).height();
    layout.frameStyle = FrameStyle::safari;
    layout.frameScale = 2;
    EXPECT_NEAR(contentRect(layout).top(), 176, 1e-9);
    EXPECT_NEAR(plain - contentRect(layout).height(), 176, 1e-9);
    layout.frameScale = -1;
    EXPECT_EQ(contentRect(layout).height(), plain);
}

TEST(CompositeLayout, NothingIsLeftOfImpossibleOnes) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(contentRect(layoutOf({100, 100}, 1, {100, 100}, 50)), QRectF());
    EXPECT_EQ(contentRect(layoutOf({100, 100}, 1, {100, 0}, 0)), QRectF());
    const CompositeLayout invalid = layoutOf({100, infinite}, 1, {100, 100}, 10);
    EXPECT_FALSE(invalid.isValid());
    EXPECT_EQ(scaledPadding(invalid), QPointF(10, 10));
    EXPECT_FALSE(layoutOf({std::nan(""), 10}, 1, {1, 1}, 0).isValid());
}

TEST(CompositeLayout, BackdropScaleIsTheSmallerAxisAndAtLeastOne) {
    EXPECT_EQ(backdropScale({100, 100}, {300, 200}), 2);
    EXPECT_EQ(backdropScale({100, 100}, {50, 200}), 1);
    EXPECT_EQ(backdropScale({0.5, 0.5}, {3, 7}), 3);
}

}  // namespace
}  // namespace kestrio
