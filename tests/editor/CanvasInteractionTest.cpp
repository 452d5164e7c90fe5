#include "editor/canvas/CanvasInteraction.h"

#include "annotation/model/AnnotationKind.h"
#include "editor/EditorFixture.h"

namespace kestrio {
namespace {

// A canvas of 400 x 300 points, bare, at half its size in a view of 200 x 150.
struct CanvasInteractionTest : EditorFixture {
    CanvasInteraction interaction{*editor};

    void SetUp() override {
        editor->loadCapture({picture({400, 300})});
        BackdropSettings bare;
        bare.type = BackdropType::none;
        bare.padding = 0;
        editor->styleModel().set_backdrop(bare);
        editor->styleModel().set_frameStyle(FrameStyle::none);
        interaction.setViewport(
            {editor->layout(), editor->canvasState().transform, QSizeF(200, 150), 0});
        editor->toggleAnnotationMode();
    }

    AnnotationViewModel& annotations() { return editor->annotationVM(); }

    /// Puts padding around the screenshot, which then stands at 80, 60 of the canvas at 0.6 of its
    /// size.
    void pad() {
        BackdropSettings padded = editor->styleModel().backdrop();
        padded.padding = 60;
        editor->styleModel().set_backdrop(padded);
        interaction.setViewport(
            {editor->layout(), editor->canvasState().transform, QSizeF(200, 150), 0});
        ASSERT_EQ(interaction.viewport().contentRect(), QRectF(80, 60, 240, 180));
    }

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

TEST_F(CanvasInteractionTest, DrawsInTheScreenshotsPointsWhateverTheZoom) {
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

// Padding changes where the screenshot stands and how large it is shown; marks count in its points.
TEST_F(CanvasInteractionTest, EveryKindIsDrawnFoundAndMovedInTheScreenshotsPoints) {
    pad();
    for (const AnnotationTool tool : {AnnotationTool::rectangle, AnnotationTool::blur}) {
        draw(tool, {80, 60}, {200, 150});
        EXPECT_EQ(only().bounds(), QRectF(0, 0, 200, 150));
        annotations().set_currentTool(AnnotationTool::select);
        drag({140, 105}, {152, 105});
        EXPECT_EQ(only().bounds(), QRectF(20, 0, 200, 150));
        interaction.press({QPointF(100, 90) / 2, Qt::AltModifier});
        interaction.release({QPointF(100, 90) / 2, Qt::AltModifier});
        EXPECT_TRUE(annotations().selectedAnnotation());
        annotations().deleteSelected();
    }
    draw(AnnotationTool::blur, {20, 20}, {200, 150});
    EXPECT_TRUE(annotations().annotations().empty()) << "begun beside the screenshot";
    draw(AnnotationTool::rectangle, {20, 24}, {50, 54});
    EXPECT_EQ(only().bounds(), QRectF(-100, -60, 50, 50)) << "marks may lie on the padding";
}

TEST_F(CanvasInteractionTest, BlursStayOnThePicture) {
    draw(AnnotationTool::blur, {100, 100}, {200, 150});
    annotations().set_currentTool(AnnotationTool::select);
    drag({150, 125}, {390, 290});
    EXPECT_EQ(only().bounds(), QRectF(300, 250, 100, 50));
    drag({350, 275}, {20, 20});
    EXPECT_EQ(only().bounds(), QRectF(0, 0, 100, 50));
    drag({100, 50}, {500, 500});
    EXPECT_EQ(only().bounds(), QRectF(0, 0, 400, 300));
}

TEST_F(CanvasInteractionTest, BlursSnapAndAreRubberBandedLikeAllOthers) {
    pad();
    draw(AnnotationTool::rectangle, {92, 72}, {152, 102});
    draw(AnnotationTool::blur, {200, 150}, {260, 180});
    annotations().set_currentTool(AnnotationTool::select);
    annotations().selectAnnotation(std::nullopt);  // so that no handle is in the way
    drag({230, 165}, {122.6, 165});
    EXPECT_NEAR(annotations().annotations().back().bounds().left(), 20, 1e-6) << "snapped";
    drag({84, 64}, {170, 200});
    EXPECT_EQ(annotations().selectedAnnotations().size(), 2u);
    EXPECT_EQ(annotations().combinedBounds()->left(), 20);
}

// A circle's box is square whatever is dragged; the corner opposite to the dragged one stands
// still.
TEST_F(CanvasInteractionTest, RoundMarksKeepTheOppositeCorner) {
    const AnyAnnotation marks[] = {
        CircleAnnotation{QUuid::createUuid(), {150, 130}, 30, {1, 0, 0, 1}, 4},
        NumberAnnotation{QUuid::createUuid(), {150, 130}, 1, {1, 0, 0, 1}, 60, 0},
        EmojiAnnotation{QUuid::createUuid(), {150, 130}, QStringLiteral("🎯"), 60, {}, 0, 0},
    };
    for (const AnyAnnotation& mark : marks) {
        const QRectF after = draggedByHandle(mark, {HandleRole::bottomRight, {260, 170}}).bounds();
        EXPECT_EQ(after, QRectF(120, 100, 140, 140));
        EXPECT_EQ(draggedByHandle(mark, {HandleRole::topLeft, {100, 50}}).bounds().bottomRight(),
                  QPointF(180, 160));
    }
}

TEST_F(CanvasInteractionTest, AMoveWithItsSnapIsOneStepOfUndo) {
    draw(AnnotationTool::rectangle, {20, 20}, {60, 60});
    draw(AnnotationTool::rectangle, {100, 150}, {140, 190});
    annotations().set_currentTool(AnnotationTool::select);
    annotations().selectAnnotation(std::nullopt);
    drag({120, 170}, {41, 170});
    EXPECT_EQ(annotations().annotations().back().bounds(), QRectF(20, 150, 40, 40)) << "snapped";
    annotations().undo();
    EXPECT_EQ(annotations().annotations().back().bounds(), QRectF(100, 150, 40, 40));
}

TEST_F(CanvasInteractionTest, StraightStrokesCanBeMoved) {
    annotations().addAnnotation(
        BrushAnnotation{QUuid::createUuid(), {{100, 100}, {200, 100}}, {1, 0, 0, 1}, 4});
    annotations().set_currentTool(AnnotationTool::select);
    drag({150, 100}, {150, 170});
    EXPECT_EQ(only().bounds(), QRectF(100, 170, 100, 0));
}

TEST_F(CanvasInteractionTest, HiddenMarksAreOutOfReach) {
    draw(AnnotationTool::rectangle, {100, 100}, {160, 150});
    annotations().toggleVisibility();
    EXPECT_TRUE(annotations().selectedAnnotations().empty());
    annotations().set_currentTool(AnnotationTool::select);
    drag({130, 125}, {200, 200});
    drag({50, 50}, {300, 250});
    EXPECT_FALSE(annotations().selectedAnnotation());
    EXPECT_FALSE(interaction.selectAt({65, 62}));
    annotations().selectAll();
    annotations().deleteSelected();
    annotations().set_currentTool(AnnotationTool::eraser);
    drag({100, 100}, {160, 150});
    EXPECT_EQ(only().bounds(), QRectF(100, 100, 60, 50));
}

TEST_F(CanvasInteractionTest, AClickElsewhereEndsTheTypingOfANumber) {
    draw(AnnotationTool::number, {100, 100}, {100, 100});
    for (const char* typed : {"7", "x"}) {
        annotations().numberEditing().start(only());
        annotations().numberEditing().setInput(QString::fromLatin1(typed));
        interaction.press({{150, 140}});
        interaction.release({{150, 140}});
        EXPECT_FALSE(annotations().numberEditing().isEditing());
        EXPECT_EQ(only().as<NumberAnnotation>()->number, 7) << typed;
    }
    draw(AnnotationTool::rectangle, {200, 200}, {260, 260});
    EXPECT_EQ(annotations().annotations().size(), 2u) << "the canvas goes on";
}

TEST_F(CanvasInteractionTest, ARightClickMakesTheMarkUnderItTheOneThatIsMeant) {
    draw(AnnotationTool::rectangle, {20, 20}, {80, 80});
    draw(AnnotationTool::rectangle, {120, 20}, {180, 80});
    annotations().selectAll();
    ASSERT_TRUE(interaction.selectAt({25, 25}));
    EXPECT_EQ(annotations().selectedAnnotations().size(), 2u);
    EXPECT_EQ(annotations().selectedAnnotation()->id(), annotations().annotations().front().id());
}

TEST_F(CanvasInteractionTest, TheEraserReachesAsFarAsItShows) {
    draw(AnnotationTool::rectangle, {100, 100}, {160, 150});
    annotations().set_currentTool(AnnotationTool::eraser);
    // 22 points of the view are 44 of the canvas.
    interaction.press({QPointF(26, 62)});
    EXPECT_TRUE(annotations().annotations().size() == 1);
    interaction.move({QPointF(28.5, 62)});
    EXPECT_TRUE(annotations().annotations().empty());
    EXPECT_EQ(annotations().cursorPosition(), QPointF(57, 124)) << "its ring follows";
    interaction.release({QPointF(28.5, 62)});
}

// Escape, undo and another document end what the pointer is doing as if it had never begun.
TEST_F(CanvasInteractionTest, ACancelledGestureLeavesNothing) {
    draw(AnnotationTool::rectangle, {100, 100}, {160, 150});
    const AnyAnnotation before = only();
    const std::size_t steps = annotations().historyService().undoStack().size();
    struct Row {
        AnnotationTool tool;
        QPointF from, to;
    };
    const Row rows[] = {{AnnotationTool::select, {65, 62}, {90, 80}},
                        {AnnotationTool::select, {80, 75}, {95, 90}},
                        {AnnotationTool::select, {10, 10}, {180, 140}},
                        {AnnotationTool::brush, {10, 10}, {180, 140}},
                        {AnnotationTool::eraser, {50, 62}, {60, 62}}};
    for (const Row& row : rows) {
        for (const bool isUndone : {false, true}) {
            annotations().set_currentTool(row.tool);
            interaction.press({row.from});
            interaction.move({row.to});
            ASSERT_TRUE(annotations().gesture());
            isUndone ? annotations().undo() : annotations().cancelGesture();
            interaction.release({row.to});
            ASSERT_EQ(annotations().annotations().size(), 1u);
            EXPECT_TRUE(isIdentical(only(), before));
            EXPECT_EQ(annotations().historyService().undoStack().size(), steps);
            annotations().selectAnnotation(only());
        }
    }
}

TEST_F(CanvasInteractionTest, TheWheelZoomsAboutThePointer) {
    const QPointF pointer(150, 100);
    const QPointF before = interaction.viewport().viewToCanvas(pointer);
    interaction.wheel({pointer, Qt::ControlModifier}, {0, 240});
    interaction.setViewport(
        {editor->layout(), editor->canvasState().transform, QSizeF(200, 150), 0});
    EXPECT_GT(editor->canvasState().transform.scale, 1.3);
    const QPointF after = interaction.viewport().viewToCanvas(pointer);
    EXPECT_NEAR(QLineF(before, after).length(), 0, 1e-6);
}

}  // namespace
}  // namespace kestrio
