#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/model/Geometry.h"
#include "support/Gestures.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

/// Draws from start to end with a tool; the record made, or none.
std::optional<AnyAnnotation> drawn(AnnotationTool tool, QPointF start, QPointF end,
                                   ToolSettings settings = {}) {
    double seconds = 0;
    AnnotationViewModel model({}, nullptr, [&seconds] { return seconds += 0.01; });
    model.set_toolSettings(settings);
    model.set_currentTool(tool);
    drawLine(model, start, end);
    EXPECT_FALSE(model.gesture() || model.recordBeingDrawn());
    EXPECT_EQ(model.historyService().canUndo(), !model.annotations().empty());
    EXPECT_EQ(model.selectedAnnotation().has_value(), !model.annotations().empty());
    if (model.annotations().empty()) return std::nullopt;
    return model.annotations().front();
}

TEST(AnnotationTools, MakeWhatTheTableSays) {
    const ToolSettings settings{{0, 0, 1, 1}, StrokeSize::large, FillMode::both};
    const CodableColor blue = settings.color;
    struct Row {
        AnnotationTool tool;
        QPointF start;
        QPointF end;
        AnyAnnotation expected;
    };
    const Row rows[] = {
        {AnnotationTool::arrow, {3, 4}, {3, 4}, ArrowAnnotation{{}, {3, 4}, {3, 4}, {}, blue, 6}},
        {AnnotationTool::measurement,
         {0, 0},
         {0, 5.01},
         MeasurementAnnotation{{}, {0, 0}, {0, 5.01}, blue, 6}},
        {AnnotationTool::rectangle,
         {50, 60},
         {10, 20},
         RectangleAnnotation{{}, {10, 20, 40, 40}, blue, 6, FillMode::both, 0, 0}},
        {AnnotationTool::circle,
         {50, 60},
         {10, 40},
         CircleAnnotation{{}, {30, 50}, 10, blue, 6, FillMode::both}},
        {AnnotationTool::text,
         {50, 60},
         {20, 50},
         TextAnnotation{{},
                        {50, 60, 100, 40},
                        {},
                        blue,
                        16,
                        CodableFontWeight::regular,
                        std::nullopt,
                        CodableTextAlignment::leading,
                        0,
                        0}},
        {AnnotationTool::text,
         {50, 60},
         {-150, 160},
         TextAnnotation{{},
                        {50, 60, 200, 100},
                        {},
                        blue,
                        16,
                        CodableFontWeight::regular,
                        std::nullopt,
                        CodableTextAlignment::leading,
                        0,
                        0}},
        {AnnotationTool::number, {7, 8}, {90, 90}, NumberAnnotation{{}, {7, 8}, 1, blue, 36, 0}},
        {AnnotationTool::brush,
         {1, 1},
         {1.5, 1},
         BrushAnnotation{{}, {{1, 1}, {1.5, 1}}, blue, 6, false}},
        {AnnotationTool::highlighter,
         {1, 1},
         {90, 1},
         BrushAnnotation{{}, {{1, 1}, {90, 1}}, {0, 0, 1, 0.4}, 18, true}},
        {AnnotationTool::blur,
         {40, 40},
         {10, 20},
         BlurAnnotation{{}, {10, 20, 30, 20}, 10, {0, 0, 0, 0}, 0, BlurType::gaussian, 0.5}},
    };
    for (const Row& row : rows) {
        const auto made = drawn(row.tool, row.start, row.end, settings);
        ASSERT_TRUE(made) << annotationToolInfo(row.tool).name;
        JsonValue json = encodeJson(*made);
        json["data"]["id"] = encodeJson(QUuid());
        EXPECT_EQ(jsonText(json), encodeJsonText(row.expected));
    }
}

TEST(AnnotationTools, RefuseWhatIsTooSmall) {
    struct Row {
        AnnotationTool tool;
        QPointF end;  ///< drawn from (10, 20)
        bool isMade;
    };
    const Row rows[] = {
        {AnnotationTool::select, {90, 90}, false},
        {AnnotationTool::eraser, {90, 90}, false},
        {AnnotationTool::measurement, {13, 24}, false},
        {AnnotationTool::measurement, {13, 24.01}, true},
        {AnnotationTool::rectangle, {15, 70}, false},
        {AnnotationTool::rectangle, {15.01, 70}, true},
        {AnnotationTool::rectangle, {70, 15}, false},
        {AnnotationTool::circle, {60, 25}, false},
        {AnnotationTool::circle, {4.99, 14.99}, true},
        {AnnotationTool::blur, {20, 70}, false},
        {AnnotationTool::blur, {20.01, 70}, true},
        {AnnotationTool::blur, {70, 30}, false},
        {AnnotationTool::brush, {10, 20}, false},
        {AnnotationTool::highlighter, {10, 20}, false},
        {AnnotationTool::text, {10, 20}, true},
        {AnnotationTool::number, {10, 20}, true},
        {AnnotationTool::arrow, {10, 20}, true},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(drawn(row.tool, {10, 20}, row.end).has_value(), row.isMade)
            << annotationToolInfo(row.tool).name << " " << row.end.x() << " " << row.end.y();
    }
}

TEST(AnnotationTools, PointersAndWidths) {
    for (const AnnotationToolInfo& info : annotationTools()) {
        const Qt::CursorShape expected = info.tool == AnnotationTool::select ? Qt::ArrowCursor
                                         : info.tool == AnnotationTool::text ? Qt::IBeamCursor
                                                                             : Qt::CrossCursor;
        EXPECT_EQ(info.pointer, expected) << info.name;
    }
    for (std::size_t i = 0; i < strokeSizes.size(); ++i)
        EXPECT_EQ(strokeWidth(strokeSizes[i].value), (std::array{2.0, 4.0, 6.0, 8.0})[i]);
}

TEST(AnnotationTools, StrokesAreThinnedByTheirSpeed) {
    double seconds = 0;
    AnnotationViewModel model({}, nullptr, [&seconds] { return seconds += 0.005; });
    model.set_currentTool(AnnotationTool::brush);
    startDrawing(model, {0, 0});
    for (int i = 1; i <= 20000; ++i)
        model.moveGesture({{i * 5.0, 200 * std::sin(i * 0.02)}});
    model.finishGesture();
    const auto& points = model.annotations().front().as<BrushAnnotation>()->points;
    EXPECT_LT(points.size(), 10000u);
    EXPECT_GT(points.size(), 200u);
    EXPECT_TRUE(identical(points.back(), {100000, 200 * std::sin(400)}));
}

TEST(AnnotationTools, TheTextToolOpensItsEditorAndTheToolMaySwitchBack) {
    AnnotationViewModel model;
    model.set_currentTool(AnnotationTool::text);
    drawLine(model, {5, 6}, {9, 6});
    EXPECT_EQ(model.currentTool(), AnnotationTool::text);
    EXPECT_TRUE(identical(model.annotations().front().bounds(), QRectF(5, 6, 150, 40)));
    EXPECT_EQ(model.newlyCreatedTextAnnotationId(), model.annotations().front().id());
    model.set_autoSwitchToSelect(true);
    drawLine(model, {100, 100}, {100, 100});
    EXPECT_EQ(model.currentTool(), AnnotationTool::select);
    EXPECT_EQ(model.newlyCreatedTextAnnotationId(), model.annotations().back().id());
    model.toggleVisibility();
    EXPECT_FALSE(model.selectedAnnotation());
    startDrawing(model, {0, 0});
    EXPECT_FALSE(model.gesture()) << "nothing is drawn while annotations are hidden";
}

}  // namespace
}  // namespace kestrio
