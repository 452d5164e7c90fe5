#include "EditorFixture.h"

#include "editor/keyboard/AnnotationKeyboardHandler.h"

namespace kestrio {
namespace {

// What one action leaves for the next: typing, undo, modes and outputs in every order.
struct EditingState : EditorFixture {
    AnnotationViewModel& model() { return editor->annotationVM(); }

    void SetUp() override { editor->loadCapture({picture({400, 300})}); }

    /// A text tool's click, then typing.
    void type(const char* words, QPointF at = {20, 20}) {
        if (!editor->isAnnotationMode()) editor->toggleAnnotationMode();
        model().set_currentTool(AnnotationTool::text);
        model().set_currentTool(AnnotationTool::text);
        drawLine(model(), at, at);
        model().textEditing().begin(model().annotations().back().id());
        model().textEditing().setText(QString::fromUtf8(words));
    }

    QString onlyText() {
        const auto& marks = editor->liveAnnotations();
        return marks.size() == 1 ? marks.front().as<TextAnnotation>()->text : QString();
    }
};

TEST_F(EditingState, WhatIsTypedSurvivesEveryWayOut) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"annotate", [&] { editor->toggleAnnotationMode(); }},
        {"crop", [&] { editor->enterCropMode(); }},
        {"eyedropper", [&] { editor->toggleColorPicker(); }},
        {"style", [&] { editor->applyPresetTheme(PresetTheme::all().back()); }},
        {"output", [&] { runUntilDone(editor->outputModel().prepareRenderedImage()); }},
        {"hidden", [&] { model().toggleVisibility(), editor->synchroniseAnnotations(); }},
        {"number", [&] { editor->finishEditing(); }},
    };
    for (const auto& [name, leave] : ways) {
        editor = makeEditor();
        SetUp();
        type("words");
        leave();
        EXPECT_FALSE(model().textEditing().isTextEditing()) << name;
        EXPECT_EQ(onlyText(), QStringLiteral("words")) << name;
    }
    EXPECT_EQ(renderer->requests.back().annotations.size(), 1u);
}

TEST_F(EditingState, ATextMadeAndTypedIsOneStepOfUndo) {
    type("words");
    editor->undo();
    EXPECT_TRUE(editor->liveAnnotations().empty());
    editor->redo();
    EXPECT_EQ(onlyText(), QStringLiteral("words"));
    model().textEditing().begin(model().annotations().front().id());
    model().textEditing().setText(QStringLiteral("other"));
    editor->undo();
    EXPECT_EQ(onlyText(), QStringLiteral("words"));
}

TEST_F(EditingState, AnEmptiedTextGoesAndOnlyAnOldOneComesBack) {
    type("");
    model().textEditing().end();
    EXPECT_TRUE(model().annotations().empty());
    EXPECT_FALSE(editor->canUndo());
    type("words");
    model().textEditing().end();
    model().textEditing().begin(model().annotations().front().id());
    model().textEditing().setText(QStringLiteral(" "));
    model().textEditing().end();
    EXPECT_TRUE(model().annotations().empty());
    editor->undo();
    EXPECT_EQ(onlyText(), QStringLiteral("words"));
}

TEST_F(EditingState, TheBoxGrowsWithItsTextWithinThePicture) {
    type("a");
    const auto box = [&] { return model().annotations().front().bounds(); };
    EXPECT_EQ(box(), QRectF(20, 20, 150, 40));
    model().textEditing().setText(QStringLiteral("some more words than the box is wide"));
    EXPECT_GT(box().width(), 200);
    EXPECT_LE(box().right(), 400);
    EXPECT_EQ(box().height(), 40);
    model().textEditing().setText(QString(300, u'w'));
    EXPECT_EQ(box().right(), 400);
    EXPECT_GT(box().height(), 100);
    model().textEditing().setText(QStringLiteral("a"));
    EXPECT_EQ(box(), QRectF(20, 20, 150, 40)) << "and shrinks again";

    TextAnnotation wrapped{QUuid::createUuid(), {50, 50, 60, 30}, QStringLiteral("two lines here")};
    wrapped.fontSize = 16;
    wrapped.rotation = 90;
    const auto corner = [](const TextAnnotation& text) {
        return QTransform()
            .translate(text.bounds.center().x(), text.bounds.center().y())
            .rotate(text.rotation)
            .map(text.bounds.topLeft() - text.bounds.center());
    };
    const QPointF before = corner(wrapped);
    const TextGrowth growth = textGrowth(wrapped, 400);
    wrapped.text += QStringLiteral(" and then some more of them");
    wrapped.bounds = grownBox(wrapped, growth);
    EXPECT_EQ(wrapped.bounds.width(), 60) << "a text that was wrapped stays so";
    EXPECT_GT(wrapped.bounds.height(), 60);
    EXPECT_NEAR(QLineF(before, corner(wrapped)).length(), 0, 1e-9);
}

TEST_F(EditingState, UndoOfMarksFollowsACropAndForgetsOtherPictures) {
    draw(AnnotationTool::rectangle, {100, 100}, {150, 140});
    draw(AnnotationTool::rectangle, {200, 100}, {250, 140});
    editor->enterCropMode();
    editor->cropSession().set_cropRect({50, 60, 300, 200});
    editor->applyCrop();
    editor->toggleAnnotationMode();
    editor->undo();
    ASSERT_EQ(editor->liveAnnotations().size(), 1u);
    EXPECT_EQ(editor->liveAnnotations().front().bounds(), QRectF(50, 40, 50, 40));
    editor->redo();
    EXPECT_EQ(editor->liveAnnotations().back().bounds(), QRectF(150, 40, 50, 40));
    editor->undo();

    editor->leaveAnnotationMode();
    const std::pair<const char*, std::function<void()>> others[] = {
        {"paste",
         [&] {
             editor->replaceScreenshot(picture({90, 90}));
         }},
        {"undo of the paste", [&] { editor->undo(); }},
        {"undo before the crop", [&] { editor->undo(), editor->undo(); }},
        {"capture", [&] { editor->loadCapture({picture()}); }},
    };
    for (const auto& [name, replace] : others) {
        replace();
        const auto marks = editor->annotations();
        editor->toggleAnnotationMode();
        EXPECT_FALSE(editor->canUndo() || editor->canRedo()) << name;
        editor->undo();
        editor->redo();
        EXPECT_EQ(editor->liveAnnotations(), marks) << name;
        editor->leaveAnnotationMode();
    }
}

TEST_F(EditingState, ReturningToAnnotationModeKeepsItsUndo) {
    draw(AnnotationTool::rectangle, {100, 100}, {150, 140});
    editor->leaveAnnotationMode();
    editor->styleModel().set_frameStyle(FrameStyle::safari);
    editor->recordSnapshot();
    editor->undo();
    editor->toggleAnnotationMode();
    editor->undo();
    EXPECT_TRUE(editor->liveAnnotations().empty());
}

TEST_F(EditingState, TheOriginalFollowsCropsAndGoesWithItsPicture) {
    const auto sizeBefore = editor->screenshot().pointSize();
    const auto enhance = [&] {
        return runUntilDone(editor->enhancement().enhanceImage(AIEnhancementMode::sharpen, 0.5));
    };
    ASSERT_TRUE(enhance());
    editor->enterCropMode();
    editor->cropSession().set_cropRect({50, 60, 300, 200});
    editor->applyCrop();
    editor->enhancement().restoreOriginalImage();
    EXPECT_EQ(editor->screenshot().pixelSize(), QSize(300, 200));
    EXPECT_EQ(editor->screenshot().pointSize(), QSizeF(300, 200));
    editor->undo();
    EXPECT_TRUE(editor->enhancement().canRestoreOriginalImage());
    editor->undo();
    EXPECT_EQ(editor->screenshot().pointSize(), sizeBefore);
    EXPECT_TRUE(editor->enhancement().canRestoreOriginalImage()) << "enhanced, not yet cropped";
    editor->replaceScreenshot(picture({90, 90}));
    EXPECT_FALSE(editor->enhancement().canRestoreOriginalImage());
    ASSERT_TRUE(enhance());
    editor->reset();
    EXPECT_FALSE(editor->enhancement().canRestoreOriginalImage());

    auto pending = editor->enhancement().enhanceImage(AIEnhancementMode::sharpen, 0.5);
    editor->replaceScreenshot(picture({70, 70}));
    EXPECT_FALSE(runUntilDone(std::move(pending))) << "of a picture that is gone";
    EXPECT_EQ(editor->screenshot().pixelSize(), QSize(70, 70));
}

TEST_F(EditingState, ModesExcludeEachOther) {
    editor->toggleColorPicker();
    editor->enterCropMode();
    EXPECT_FALSE(editor->colorPickerVM().isColorPickingMode());
    editor->toggleColorPicker();
    EXPECT_FALSE(editor->isCropMode());
    editor->toggleAnnotationMode();
    EXPECT_TRUE(editor->isAnnotationMode() &&
                editor->annotationSession().isAnnotationPanelPresentationDeferred());
    editor->colorPickerVM().pick(editor->screenshot(), {5, 5}, false);
    EXPECT_TRUE(editor->isAnnotationMode());
    EXPECT_FALSE(editor->annotationSession().isAnnotationPanelPresentationDeferred());
    editor->enterCropMode();
    EXPECT_FALSE(editor->isAnnotationMode());
    EXPECT_TRUE(editor->canUndo()) << "as the key does something, so does the button";
    editor->undo();
    EXPECT_FALSE(editor->isCropMode());
}

TEST_F(EditingState, ZoomIsNoStepOfUndoAndTheFramesScaleIsOne) {
    editor->setZoom(3);
    editor->recordSnapshot();
    EXPECT_FALSE(editor->canUndo());
    editor->styleModel().set_frameScale(2);
    editor->recordSnapshot();
    editor->setZoom(2);
    editor->undo();
    EXPECT_EQ(editor->styleModel().frameScale(), 1);
    EXPECT_EQ(editor->canvasState().transform.scale, 2) << "where the user looks";
    editor->redo();
    EXPECT_EQ(editor->styleModel().frameScale(), 2);
}

// Equality leaves colours out; where the button is off, the key does nothing either.
TEST_F(EditingState, ButtonAndKeyOfUndoAgree) {
    draw(AnnotationTool::rectangle, {100, 100}, {150, 140});
    editor->leaveAnnotationMode();
    editor->toggleAnnotationMode();
    model().selectAll();
    model().setColor({0, 0, 1, 1});
    editor->leaveAnnotationMode();
    ASSERT_FALSE(editor->canUndo());
    editor->undo();
    EXPECT_EQ(editor->annotations().front().color(), (CodableColor{0, 0, 1, 1}));
}

TEST_F(EditingState, ToolsKeepColourStrokeAndFillForTheNextEditor) {
    editor->toggleAnnotationMode();
    model().set_currentTool(AnnotationTool::rectangle);
    model().setColor({0, 0, 1, 1});
    model().setFillMode(FillMode::both);
    model().set_currentTool(AnnotationTool::arrow);
    model().setColor({0, 1, 0, 1});
    model().setStrokeSize(StrokeSize::extraLarge);
    editor = makeEditor();
    SetUp();
    editor->toggleAnnotationMode();
    model().set_currentTool(AnnotationTool::rectangle);
    EXPECT_EQ(model().toolSettings().color, (CodableColor{0, 0, 1, 1}));
    EXPECT_EQ(model().toolSettings().fillMode, FillMode::both);
    model().set_currentTool(AnnotationTool::arrow);
    EXPECT_EQ(model().toolSettings().color, (CodableColor{0, 1, 0, 1}));
    EXPECT_EQ(model().toolSettings().strokeSize, StrokeSize::extraLarge);
}

TEST_F(EditingState, TheOutputsSizeFollowsAQuarterTurn) {
    editor->rotateClockwise();
    EXPECT_EQ(editor->outputPixels(), QSize(300, 400));
}

TEST_F(EditingState, AnExportBesideACopyIsBusyToItsEnd) {
    renderer->gate.emplace();
    auto copying = editor->outputModel().copyToClipboard();
    const Completion<> copied = *renderer->gate;
    renderer->gate.emplace();
    auto exporting = editor->outputModel().prepareRenderedImage();
    copied.succeed();
    runUntilDone(std::move(copying));
    EXPECT_TRUE(editor->outputModel().isExporting());
    renderer->gate->succeed();
    runUntilDone(std::move(exporting));
    EXPECT_FALSE(editor->outputModel().isExporting());
}

}  // namespace
}  // namespace kestrio
