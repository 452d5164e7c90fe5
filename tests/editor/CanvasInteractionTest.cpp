#include "editor/canvas/CanvasInteraction.h"

#include "editor/EditorFixture.h"

namespace kestrio {
namespace {

// A canvas of 400 x 300 points, bare, at half its size in a view of 200 x 150.
struct CanvasInteractionTest : EditorFixture {
    CanvasInteraction interaction{*editor};

    void SetUp() override {
        editor->loadCapture(picture({400, 300}));
        BackdropSettings bare;
        bare.type = BackdropType::none;
        bare.padding = 0;
        editor->set_backdrop(bare);
        editor->set_frameStyle(FrameStyle::none);
        interaction.setViewport(
            {editor->layout(), editor->canvasState().transform, QSizeF(200, 150), 0});
        editor->toggleAnnotationMode();
    }

    AnnotationViewModel& annotations() { return editor->annotationVM(); }

    /// In points of the canvas.
    void drag(QPointF from, QPointF to, Qt::KeyboardModifiers held = Qt::NoModifier) {
        interaction.press({from / 2, held});
        interaction.move({(from + to) / 4, held});
        interaction.move({to / 2, held});
        interaction.release({to / 2, held});
    }

    void draw(AnnotationTool tool, QPointF from, QPointF to,
              Qt::KeyboardModifiers held = Qt::NoModifier) {
        annotations().selectAnnotation(std::nullopt);
        annotations().set_currentTool(tool);
        drag(from, to, held);
    }

    const AnyAnnotation& only() {
        EXPECT_EQ(annotations().annotations().size(), 1u);
        return annotations().annotations().front();
    }
};

TEST_F(CanvasInteractionTest, DrawsInCanvasPointsWhateverTheZoom) {
    draw(AnnotationTool::rectangle, {100, 80}, {200, 180});
    EXPECT_EQ(only().bounds(), QRectF(100, 80, 100, 100));
    EXPECT_EQ(editor->annotations().size(), 1u) << "the document knows of it";
}

TEST_F(CanvasInteractionTest, ShiftConstrainsToTheSideOfThePointer) {
    draw(AnnotationTool::rectangle, {200, 200}, {150, 120}, Qt::ShiftModifier);
    EXPECT_EQ(only().bounds(), QRectF(120, 120, 80, 80));
    annotations().deleteSelected();
    draw(AnnotationTool::arrow, {100, 100}, {180, 110}, Qt::ShiftModifier);
    EXPECT_NEAR(only().as<ArrowAnnotation>()->endPoint.y(), 100, 1e-9);
}

TEST_F(CanvasInteractionTest, PressingARecordMovesItAndDrawsNothing) {
    draw(AnnotationTool::rectangle, {100, 100}, {160, 150});
    draw(AnnotationTool::circle, {130, 125}, {170, 155});
    EXPECT_EQ(only().bounds(), QRectF(140, 130, 60, 50));
}

TEST_F(CanvasInteractionTest, AMoveIsOneStepOfUndo) {
    draw(AnnotationTool::rectangle, {100, 100}, {160, 150});
    drag({130, 125}, {200, 200});
    annotations().undo();
    EXPECT_EQ(only().bounds(), QRectF(100, 100, 60, 50));
    annotations().undo();
    EXPECT_TRUE(annotations().annotations().empty());
}

TEST_F(CanvasInteractionTest, HandlesResizeInOneStepOfUndo) {
    draw(AnnotationTool::rectangle, {100, 100}, {160, 150});
    annotations().set_currentTool(AnnotationTool::select);
    drag({160, 150}, {220, 190});
    EXPECT_EQ(only().bounds(), QRectF(100, 100, 120, 90));
    drag({220, 190}, {340, 200}, Qt::ShiftModifier);
    EXPECT_EQ(only().bounds(), QRectF(100, 100, 240, 180)) << "in proportion";
    drag({340, 280}, {10, 10});
    EXPECT_EQ(only().bounds().topLeft(), QPointF(100, 100)) << "never turned over";
    for (const QRectF& before :
         {QRectF(100, 100, 240, 180), QRectF(100, 100, 120, 90), QRectF(100, 100, 60, 50)}) {
        annotations().undo();
        EXPECT_EQ(only().bounds(), before);
    }
}

TEST_F(CanvasInteractionTest, ATurnedRecordKeepsItsOppositeCornerWhenResized) {
    RectangleAnnotation rectangle{QUuid::createUuid(), {100, 100, 80, 40}, {1, 0, 0, 1}, 2};
    rectangle.rotation = 90;
    const AnyAnnotation before = rectangle;
    // Turned by 90 degrees about (140, 120), the bottom right corner stands at (120, 160).
    const AnyAnnotation after = draggedByHandle(before, {HandleRole::bottomRight, {110, 190}});
    EXPECT_EQ(after.bounds().size(), QSizeF(110, 50));
    const auto cornerOf = [](const AnyAnnotation& each) {
        for (const SelectionHandle& handle : selectionHandles(each, 20))
            if (handle.role == HandleRole::topLeft) return handle.position;
        return QPointF();
    };
    EXPECT_NEAR(QLineF(cornerOf(before), cornerOf(after)).length(), 0, 1e-9);
}

TEST_F(CanvasInteractionTest, TheRotationHandleCountsFromStraightUp) {
    const AnyAnnotation box = RectangleAnnotation{{}, {100, 100, 80, 40}, {1, 0, 0, 1}, 2};
    const auto turnTo = [&](QPointF point, bool isConstrained) {
        return rotationOf(draggedByHandle(box, {HandleRole::rotation, point, isConstrained}));
    };
    EXPECT_NEAR(turnTo({140, 50}, false), 0, 1e-9);
    EXPECT_NEAR(turnTo({200, 120}, false), 90, 1e-9);
    EXPECT_NEAR(turnTo({140 + 100 * std::sin(0.4), 120 - 100 * std::cos(0.4)}, true), 30, 1e-9);
}

TEST_F(CanvasInteractionTest, AClickPlacesATextBoxAndALongerWayDrawsOne) {
    draw(AnnotationTool::text, {100, 100}, {109, 100});
    EXPECT_EQ(only().bounds(), QRectF(100, 100, 150, 40));
    annotations().deleteSelected();
    draw(AnnotationTool::text, {100, 100}, {110, 100});
    EXPECT_EQ(only().bounds(), QRectF(100, 100, 100, 40));
}

TEST_F(CanvasInteractionTest, TheRubberBandSelectsAndShiftTakesBack) {
    draw(AnnotationTool::rectangle, {50, 50}, {90, 90});
    draw(AnnotationTool::rectangle, {200, 50}, {240, 90});
    annotations().set_currentTool(AnnotationTool::select);
    drag({20, 20}, {300, 150});
    EXPECT_EQ(annotations().selectedAnnotations().size(), 2u);
    interaction.press({QPointF(70, 70) / 2, Qt::ShiftModifier});
    interaction.release({QPointF(70, 70) / 2, Qt::ShiftModifier});
    EXPECT_EQ(annotations().selectedAnnotations().size(), 1u);
    interaction.press({{5, 140}});
    EXPECT_TRUE(annotations().selectedAnnotations().empty()) << "at once";
    interaction.release({{5, 140}});
}

// Blurs live on the screenshot: with padding around it their points differ from the canvas'.
TEST_F(CanvasInteractionTest, BlursAreDrawnFoundAndMovedInTheScreenshotsPoints) {
    BackdropSettings padded = editor->backdrop();
    padded.padding = 60;
    editor->set_backdrop(padded);
    interaction.setViewport(
        {editor->layout(), editor->canvasState().transform, QSizeF(200, 150), 0});
    const QRectF content = interaction.viewport().contentRect();
    ASSERT_EQ(content, QRectF(80, 60, 240, 180));
    draw(AnnotationTool::blur, {80, 60}, {200, 150});
    EXPECT_EQ(only().bounds(), QRectF(0, 0, 200, 150));
    annotations().set_currentTool(AnnotationTool::select);
    drag({140, 105}, {152, 105});
    EXPECT_EQ(only().bounds(), QRectF(20, 0, 200, 150));
    annotations().deleteSelected();
    draw(AnnotationTool::blur, {20, 20}, {200, 150});
    EXPECT_TRUE(annotations().annotations().empty()) << "begun beside the screenshot";
}

TEST_F(CanvasInteractionTest, TheEraserReachesAsFarAsItShows) {
    draw(AnnotationTool::rectangle, {100, 100}, {160, 150});
    annotations().set_currentTool(AnnotationTool::eraser);
    // 22 points of the view are 44 of the canvas.
    interaction.press({QPointF(26, 62)});
    EXPECT_TRUE(annotations().annotations().size() == 1);
    interaction.move({QPointF(28.5, 62)});
    EXPECT_TRUE(annotations().annotations().empty());
    interaction.release({QPointF(28.5, 62)});
    EXPECT_FALSE(annotations().eraserPosition());
}

TEST_F(CanvasInteractionTest, TheWheelZoomsAboutThePointer) {
    const QPointF pointer(150, 100);
    const QPointF before = interaction.viewport().toCanvas(pointer);
    interaction.wheel({pointer, Qt::ControlModifier}, {0, 240});
    interaction.setViewport(
        {editor->layout(), editor->canvasState().transform, QSizeF(200, 150), 0});
    EXPECT_GT(editor->canvasState().transform.scale, 1.3);
    const QPointF after = interaction.viewport().toCanvas(pointer);
    EXPECT_NEAR(QLineF(before, after).length(), 0, 1e-6);
}

}  // namespace
}  // namespace kestrio
