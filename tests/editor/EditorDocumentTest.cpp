#include "EditorFixture.h"

namespace kestrio {
namespace {

using EditorDocument = EditorFixture;

TEST_F(EditorDocument, OpensWithTheStyleUsedLastElseTheFirstPreset) {
    editor->loadCapture({picture()});
    EXPECT_EQ(editor->style(), PresetTheme::all().front().style());
    EXPECT_EQ(editor->styleModel().currentPresetThemeId(), QStringLiteral("clean"));
    EXPECT_EQ(editor->canvasState().canvasSize, QSizeF(200, 100));
    EXPECT_FALSE(editor->canUndo());

    EditorStyleSettings used;
    used.backdrop.padding = 7;
    used.mockup.cornerRadius = 60;
    used.frameStyle = FrameStyle::safari;
    editor.reset();
    styles->save(used);
    editor = makeEditor();
    editor->loadCapture({picture()});
    used.mockup.cornerRadius = 48;
    EXPECT_EQ(editor->style(), used);
    EXPECT_FALSE(editor->styleModel().currentPresetThemeId());
}

TEST_F(EditorDocument, KeepsTheStyleWhenItEndsSoonAfterAChange) {
    editor->loadCapture({picture()});
    editor->styleModel().set_frameStyle(FrameStyle::arc);
    EXPECT_FALSE(styles->load()) << "not at each change";
    editor->cleanUp();
    EXPECT_EQ(styles->load()->frameStyle, FrameStyle::arc);
    editor->styleModel().set_frameStyle(FrameStyle::none);
    editor.reset();
    EXPECT_EQ(styles->load()->frameStyle, FrameStyle::arc) << "cleaned up is the end";
}

TEST_F(EditorDocument, UndoWalksTheHistoryOfTheMode) {
    editor->toggleAnnotationMode();
    EXPECT_FALSE(editor->isAnnotationMode()) << "there is nothing to annotate";
    editor->loadCapture({picture()});
    editor->applyPresetTheme(*PresetTheme::find(QStringLiteral("ocean")));
    EXPECT_TRUE(editor->canUndo());

    draw(AnnotationTool::number, {10, 10}, {10, 10});
    draw(AnnotationTool::number, {50, 50}, {50, 50});
    editor->undo();
    EXPECT_EQ(editor->annotations().size(), 1u);
    EXPECT_TRUE(editor->canRedo());
    editor->undo();
    editor->undo();
    EXPECT_EQ(editor->style(), PresetTheme::find(QStringLiteral("ocean"))->style());
    EXPECT_FALSE(editor->canUndo());
    editor->redo();

    editor->leaveAnnotationMode();
    EXPECT_TRUE(editor->canUndo());
    EXPECT_FALSE(editor->canRedo());
    editor->undo();
    EXPECT_TRUE(editor->annotations().empty() && editor->annotationVM().annotations().empty());
    editor->undo();
    EXPECT_EQ(editor->style(), PresetTheme::all().front().style());
    EXPECT_FALSE(editor->canUndo());
    editor->redo();
    editor->redo();
    EXPECT_EQ(editor->annotations().size(), 1u);
    EXPECT_FALSE(editor->canRedo());
}

TEST_F(EditorDocument, LeavingAnnotationModeKeepsADrawingInProgress) {
    editor->loadCapture({picture()});
    editor->toggleAnnotationMode();
    editor->annotationVM().set_currentTool(AnnotationTool::arrow);
    startDrawing(editor->annotationVM(), {1, 1});
    editor->annotationVM().moveGesture({{50, 50}});
    editor->toggleAnnotationMode();
    EXPECT_EQ(editor->annotations().size(), 1u);
    EXPECT_FALSE(editor->annotationVM().selectedAnnotation());
    draw(AnnotationTool::number, {9, 9}, {9, 9});
    EXPECT_EQ(editor->liveAnnotations().size(), 2u);
}

TEST_F(EditorDocument, TurnsRoundBothWays) {
    editor->loadCapture({picture()});
    for (const double degrees : {90, 180, 270, 0}) {
        editor->rotateClockwise();
        EXPECT_EQ(editor->canvasState().transform.rotation, degrees);
    }
    editor->rotateCounterClockwise();
    EXPECT_EQ(editor->canvasState().transform.rotation, 270);
    editor->undo();
    EXPECT_EQ(editor->canvasState().transform.rotation, 0);
}

TEST_F(EditorDocument, ZoomIsTypedAsAWholeNumber) {
    const std::pair<const char*, double> rows[] = {
        {"9", 0.1},   {"501", 5},    {"abc", 2},     {"", 2},    {"+50", 0.5},
        {"-50", 0.1}, {"150%", 1.5}, {"150 %", 1.5}, {" 5 ", 2}, {"5 0", 2},
        {"1e2", 2},   {"0x40", 2},   {"7.5", 2},     {"%", 2},   {"3000000000", 5},
    };
    editor->loadCapture({picture()});
    for (const auto& [text, scale] : rows) {
        editor->setZoom(2);
        editor->setZoomText(QString::fromUtf8(text));
        EXPECT_EQ(editor->canvasState().transform.scale, scale) << text;
    }
}

TEST_F(EditorDocument, ResetForgetsAllButThePicture) {
    editor->loadCapture({picture()});
    draw(AnnotationTool::number, {10, 10}, {10, 10});
    editor->leaveAnnotationMode();
    editor->styleModel().set_frameScale(2);
    editor->setAspectRatio({QStringLiteral("1:1"), 1.0});
    EXPECT_EQ(editor->canvasState().canvasSize, QSizeF(200, 200));
    editor->reset();
    CanvasState canvas;
    canvas.canvasSize = {200, 100};
    EXPECT_EQ(editor->canvasState(), canvas);
    EXPECT_EQ(editor->style(), EditorStyleSettings());
    EXPECT_EQ(editor->styleModel().frameScale(), 1);
    EXPECT_TRUE(editor->annotations().empty() && editor->annotationVM().annotations().empty());
    EXPECT_FALSE(editor->canUndo() || editor->annotationVM().historyService().canUndo());
    editor->rotateClockwise();
    editor->undo();
    EXPECT_EQ(editor->canvasState(), canvas) << "what reset left is the first step";
}

TEST_F(EditorDocument, CroppingLeavesAnnotationsOnWhatTheyMark) {
    editor->loadCapture({picture()});
    draw(AnnotationTool::rectangle, {80, 40}, {110, 60});
    draw(AnnotationTool::blur, {60, 30}, {90, 55});
    const auto before = editor->annotations();
    editor->enterCropMode();
    EXPECT_FALSE(editor->isAnnotationMode());
    EXPECT_EQ(editor->cropSession().cropRect(), QRectF(0, 0, 200, 100));
    editor->cropSession().set_cropRect({50, 20, 120, 70});
    editor->applyCrop();
    EXPECT_FALSE(editor->isCropMode());
    EXPECT_EQ(editor->screenshot().pixelSize(), QSize(120, 70));
    EXPECT_EQ(editor->canvasState().canvasSize, QSizeF(120, 70));
    EXPECT_EQ(editor->annotations()[0].bounds(), QRectF(30, 20, 30, 20));
    EXPECT_EQ(editor->annotations()[1].bounds(), QRectF(10, 10, 30, 25));
    EXPECT_EQ(editor->annotationVM().annotations(), editor->annotations());

    editor->undo();
    EXPECT_EQ(editor->screenshot().pixelSize(), QSize(200, 100));
    EXPECT_EQ(editor->annotations(), before);
}

TEST_F(EditorDocument, CropFramesWithoutAreaOrRatioChangeNothing) {
    editor->enterCropMode();
    EXPECT_FALSE(editor->isCropMode()) << "there is no picture";
    editor->loadCapture({picture()});
    for (const QRectF& frame : {QRectF(50, 50, 0, 10), QRectF(300, 300, 20, 20), QRectF()}) {
        editor->enterCropMode();
        editor->cropSession().set_cropRect(frame);
        editor->applyCrop();
        EXPECT_FALSE(editor->isCropMode() || editor->canUndo());
        EXPECT_EQ(editor->screenshot().pixelSize(), QSize(200, 100));
    }
    editor->enterCropMode();
    editor->cropSession().setCropRatio(1);
    EXPECT_EQ(editor->cropSession().cropRect(), QRectF(50, 0, 100, 100));
    EXPECT_TRUE(editor->cropSession().cropLockAspectRatio());
    editor->cropSession().setCropRatio(0);
    EXPECT_EQ(editor->cropSession().cropLockedRatio(), 1);
    editor->cancelCrop();
    EXPECT_FALSE(editor->cropSession().cropLockAspectRatio() ||
                 editor->cropSession().cropLockedRatio());
}

}  // namespace
}  // namespace kestrio
