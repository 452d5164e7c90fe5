#include "editor/EditorFixture.h"

#include "editor/output/DocumentClosing.h"

#include <QTemporaryDir>

namespace kestrio {
namespace {

struct ClosingTest : EditorFixture {
    QTemporaryDir folder;
    std::unique_ptr<DocumentClosing> closing;
    int closable = 0;

    ClosingTest() {
        AppSettings chosen = services().settings->load();
        chosen.defaultSavePath = folder.path();
        AppSettingsService(defaults).save(chosen);
        editor->loadCapture({picture()});
        closing = std::make_unique<DocumentClosing>(*editor, services());
        QObject::connect(closing.get(), &DocumentClosing::mayCloseNow, [this] { ++closable; });
    }

    static void runEvents() {
        for (int turn = 0; turn < 20; ++turn)
            QCoreApplication::processEvents();
    }

    void copy() { runUntilDone(editor->outputModel().copyToClipboard()); }
};

TEST_F(ClosingTest, OnlyWhatTheUserChangedCounts) {
    EXPECT_FALSE(editor->outputModel().hasUnexportedChanges()) << "a fresh capture";
    editor->setZoom(2);
    EXPECT_FALSE(editor->outputModel().hasUnexportedChanges()) << "zoom is no change";
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"turn", [this] { editor->rotateClockwise(); }},
        {"style", [this] { editor->applyPresetTheme(PresetTheme::all().back()); }},
        {"frame scale", [this] { editor->styleModel().set_frameScale(1.7); }},
        {"canvas", [this] { editor->setAspectRatio(AspectRatio::custom(3, 1)); }},
        {"mark",
         [this] {
             draw(AnnotationTool::rectangle, {10, 10}, {80, 60});
         }},
        {"hidden mark",
         [this] {
             draw(AnnotationTool::rectangle, {20, 10}, {80, 60});
             editor->annotationVM().toggleVisibility();
         }},
        {"picture",
         [this] {
             editor->replaceScreenshot(picture({70, 70}));
         }},
    };
    for (const auto& [name, change] : changes) {
        change();
        EXPECT_TRUE(editor->outputModel().hasUnexportedChanges()) << name;
        if (!editor->annotationVM().annotationsVisible()) editor->annotationVM().toggleVisibility();
        copy();
        EXPECT_FALSE(editor->outputModel().hasUnexportedChanges()) << name << " after a copy";
    }
}

TEST_F(ClosingTest, AColourIsAChangeAndUndoTakesItBack) {
    draw(AnnotationTool::rectangle, {10, 10}, {80, 60});
    editor->leaveAnnotationMode();
    EXPECT_TRUE(editor->outputModel().hasUnexportedChanges());
    editor->undo();
    EXPECT_FALSE(editor->outputModel().hasUnexportedChanges());
    editor->redo();
    copy();
    editor->toggleAnnotationMode();
    editor->annotationVM().selectAll();
    editor->annotationVM().setColor({0.1, 0.9, 0.2, 1});
    EXPECT_TRUE(editor->outputModel().hasUnexportedChanges());
}

TEST_F(ClosingTest, WhatIsChangedWhileItIsWrittenStaysUnexported) {
    editor->rotateClockwise();
    renderer->gate.emplace();
    auto exporting =
        editor->outputModel().exportImage(QStringLiteral("/x/y.png"), ExportFormat::png);
    editor->rotateClockwise();
    renderer->gate->succeed();
    runUntilDone(std::move(exporting));
    EXPECT_TRUE(editor->outputModel().hasUnexportedChanges());
}

TEST_F(ClosingTest, AnUntouchedDocumentClosesAtOnceAndAChangedOneAsks) {
    EXPECT_TRUE(closing->requestClose());
    editor->rotateClockwise();
    EXPECT_FALSE(closing->requestClose());
    EXPECT_EQ(closing->state(), ClosingState::asking);
    closing->cancel();
    EXPECT_EQ(closing->state(), ClosingState::open);
    EXPECT_EQ(closable, 0);
    EXPECT_FALSE(closing->requestClose());
    closing->discard();
    EXPECT_EQ(closable, 1);
    EXPECT_TRUE(closing->requestClose());
    EXPECT_TRUE(exporter->savedPaths.empty());
}

TEST_F(ClosingTest, SavingClosesOnlyWhereItSucceeds) {
    editor->rotateClockwise();
    exporter->saveFailure = ExportError::fileWriteFailed(folder.path());
    EXPECT_FALSE(closing->requestClose());
    closing->save();
    runEvents();
    EXPECT_EQ(closing->state(), ClosingState::asking);
    EXPECT_FALSE(closing->errorMessage().isEmpty());
    EXPECT_EQ(closable, 0);

    exporter->saveFailure.reset();
    const QTemporaryDir other;
    closing->saveElsewhere(nullptr);
    ASSERT_TRUE(dialogs->isPending());
    dialogs->dismiss();
    runEvents();
    EXPECT_EQ(closing->state(), ClosingState::asking);
    closing->saveElsewhere(nullptr);
    dialogs->answer(other.path());
    runEvents();
    EXPECT_EQ(closable, 1);
    ASSERT_EQ(exporter->savedPaths.size(), 1);
    EXPECT_EQ(QFileInfo(exporter->savedPaths.front()).path(), other.path());
}

TEST_F(ClosingTest, HiddenBlursAreShownInWhatIsSavedByItself) {
    draw(AnnotationTool::blur, {10, 10}, {80, 60});
    editor->annotationVM().toggleVisibility();
    EXPECT_FALSE(closing->requestClose());
    closing->save();
    runEvents();
    EXPECT_EQ(closable, 1);
    ASSERT_FALSE(renderer->requests.empty());
    EXPECT_EQ(renderer->requests.back().annotations.size(), 1U);
}

TEST_F(ClosingTest, AnExportUnderWayIsWaitedFor) {
    for (const bool succeeds : {true, false}) {
        editor->rotateClockwise();
        renderer->gate.emplace();
        if (!succeeds) exporter->saveFailure = ExportError::fileWriteFailed(folder.path());
        auto exporting =
            editor->outputModel().exportImage(QStringLiteral("/x/y.png"), ExportFormat::png);
        EXPECT_FALSE(closing->requestClose());
        EXPECT_EQ(closing->state(), ClosingState::waiting);
        runEvents();
        EXPECT_EQ(closable, 0);
        renderer->gate->succeed();
        try {
            runUntilDone(std::move(exporting));
        } catch (const ExportError&) {
        }
        runEvents();
        EXPECT_EQ(closable, succeeds ? 1 : 0);
        EXPECT_EQ(closing->state(), succeeds ? ClosingState::open : ClosingState::asking);
        closable = 0;
        closing = std::make_unique<DocumentClosing>(*editor, services());
        QObject::connect(closing.get(), &DocumentClosing::mayCloseNow, [this] { ++closable; });
    }
}

}  // namespace
}  // namespace kestrio
