#include "editor/crop/CropGeometry.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

using enum CropHandle;

/// Of a frame at (40, 30) of 60 x 40 in an image of 200 x 100.
CropDrag drag(CropHandle handle, QPointF by, std::optional<double> ratio = {}) {
    return {handle, {40, 30, 60, 40}, by, {200, 100}, ratio};
}

TEST(CropGeometry, HandlesMoveTheirSidesOnly) {
    const std::tuple<CropHandle, QRectF> rows[] = {
        {topLeft, {43, 35, 57, 35}},  {top, {40, 35, 60, 35}},
        {topRight, {40, 35, 63, 35}}, {left, {43, 30, 57, 40}},
        {right, {40, 30, 63, 40}},    {bottomLeft, {43, 30, 57, 45}},
        {bottom, {40, 30, 60, 45}},   {bottomRight, {40, 30, 63, 45}},
    };
    for (const auto& [handle, expected] : rows)
        EXPECT_EQ(draggedCropRect(drag(handle, {3, 5})), expected) << static_cast<int>(handle);
}

TEST(CropGeometry, ALockedRatioLeadsByWidthAndKeepsEdgesCentred) {
    const std::tuple<CropHandle, QPointF, double, QRectF> rows[] = {
        {top, {7, 10}, 2, {40, 40, 60, 30}},          {top, {0, 20}, 2, {50, 50, 40, 20}},
        {bottom, {0, -10}, 1, {55, 30, 30, 30}},      {left, {20, 9}, 1, {60, 30, 40, 40}},
        {right, {-10, 0}, 1, {40, 25, 50, 50}},       {topLeft, {10, -25}, 2, {50, 45, 50, 25}},
        {topRight, {0, 0}, 2, {40, 40, 60, 30}},      {bottomLeft, {-10, 0}, 2, {30, 30, 70, 35}},
        {bottomRight, {20, 99}, 4, {40, 30, 80, 20}},
    };
    for (const auto& [handle, by, ratio, expected] : rows)
        EXPECT_EQ(draggedCropRect(drag(handle, by, ratio)), expected) << static_cast<int>(handle);
}

TEST(CropGeometry, StopsAtTheLeastSizeAndAtTheImage) {
    const std::tuple<CropHandle, QPointF, QRectF> rows[] = {
        {left, {900, 0}, {80, 30, 20, 40}},      {right, {-900, 0}, {40, 30, 20, 40}},
        {topLeft, {900, 900}, {80, 50, 20, 20}}, {bottomRight, {-900, -900}, {40, 30, 20, 20}},
        {right, {900, 0}, {0, 30, 200, 40}},     {bottom, {0, 40}, {40, 20, 60, 80}},
    };
    for (const auto& [handle, by, expected] : rows)
        EXPECT_EQ(draggedCropRect(drag(handle, by)), expected) << static_cast<int>(handle);

    const std::tuple<QRectF, QSizeF, QRectF> clamped[] = {
        {{-50, -50, 500, 500}, {200, 100}, {0, 0, 200, 100}},
        {{190, 95, 30, 30}, {200, 100}, {170, 70, 30, 30}},
        {{60, 60, -40, -30}, {200, 100}, {20, 30, 40, 30}},
        {{50, 50, 0, 0}, {200, 100}, {50, 50, 20, 20}},
        {{3, 3, 1, 1}, {90, 8}, {3, 0, 8, 8}},
    };
    for (const auto& [rect, image, expected] : clamped)
        EXPECT_EQ(clampedCropRect(rect, image), expected);
}

TEST(CropGeometry, MapsEachAxisByItself) {
    const CropMapping mapping{{10, 20, 400, 50}, {200, 100}};
    EXPECT_EQ(mapping.toImage({110, 45}), QPointF(50, 50));
    EXPECT_EQ(mapping.toView(QPointF(50, 50)), QPointF(110, 45));
    EXPECT_EQ(mapping.toView(QRectF(0, 0, 200, 100)), mapping.imageDisplayRect);
    EXPECT_EQ(mapping.translationToImage({4, 4}), QPointF(2, 8));
    EXPECT_EQ((CropMapping{{10, 20, 0, 0}, {200, 100}}).toImage({11, 21}), QPointF());
    EXPECT_EQ((CropMapping{{10, 20, 40, 50}, {}}).toView(QPointF(5, 5)), QPointF(10, 20));
}

TEST(CropGeometry, ToolbarAndLabelStayInTheView) {
    const std::tuple<double, double, double, double> rows[] = {
        // top, bottom, toolbar, label
        {100, 200, 228, 80}, {100, 272, 300, 80}, {100, 273, 72, 80},
        {40, 290, 16, 20},   {30, 100, 128, 18},
    };
    for (const auto& [top, bottom, toolbar, label] : rows) {
        const QRectF frame(QPointF(0, top), QPointF(50, bottom));
        EXPECT_EQ(cropToolbarY(frame, 300), toolbar);
        EXPECT_EQ(cropSizeLabelY(frame), label);
    }
}

}  // namespace
}  // namespace kestrio
