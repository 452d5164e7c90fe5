#include "EditorFixture.h"

namespace kestrio {
namespace {

struct EditorOutput : EditorFixture {
    const QString path = QStringLiteral("/somewhere/shot.png");

    /// The case of what an export throws; none where it ends well.
    std::optional<ExportError::Case> failureOfExport() {
        try {
            runUntilDone(editor->outputModel().exportImage(path, ExportFormat::png));
        } catch (const ExportError& error) {
            return error.errorCase();
        }
        return std::nullopt;
    }
};

TEST_F(EditorOutput, NeedsAPicture) {
    EXPECT_EQ(failureOfExport(), ExportError::Case::renderingFailed);
    EXPECT_THROW(runUntilDone(editor->outputModel().copyToClipboard()), ExportError);
    EXPECT_THROW(runUntilDone(editor->outputModel().prepareRenderedImage()), ExportError);
    EXPECT_FALSE(editor->outputModel().isExporting());
}

TEST_F(EditorOutput, HoldsTheDocumentWithTheDrawingInProgress) {
    editor->loadCapture({picture()});
    editor->rotateClockwise();
    editor->styleModel().set_frameScale(1.5);
    editor->toggleAnnotationMode();
    editor->annotationVM().set_currentTool(AnnotationTool::arrow);
    startDrawing(editor->annotationVM(), {1, 1});
    editor->annotationVM().moveGesture({{50, 50}});
    runUntilDone(editor->outputModel().prepareRenderedImage());
    editor->watermarkVM().set_isEnabled(true);
    editor->annotationVM().toggleVisibility();
    runUntilDone(editor->outputModel().prepareRenderedImage());
    ASSERT_EQ(renderer->requests.size(), 2u);
    const CompositeRequest& first = renderer->requests[0];
    EXPECT_EQ(first.annotations.size(), 1u);
    EXPECT_FALSE(first.watermark);
    EXPECT_EQ(first.canvasState, editor->canvasState());
    EXPECT_EQ(first.mockup, editor->styleModel().mockup());
    EXPECT_EQ(first.frameScale, 1.5);
    EXPECT_TRUE(renderer->requests[1].watermark);
    EXPECT_TRUE(renderer->requests[1].annotations.empty()) << "hidden is hidden";
}

TEST_F(EditorOutput, FailsAndRecovers) {
    editor->loadCapture({picture()});
    QList<bool> told;
    QObject::connect(&editor->outputModel(), &OutputModel::isExportingChanged,
                     [&] { told << editor->outputModel().isExporting(); });
    renderer->renderFailure = ExportError::renderingFailed();
    EXPECT_EQ(failureOfExport(), ExportError::Case::renderingFailed);
    renderer->renderFailure.reset();
    exporter->saveFailure = ExportError::fileWriteFailed(path);
    EXPECT_EQ(failureOfExport(), ExportError::Case::fileWriteFailed);
    exporter->saveFailure.reset();
    exporter->copyFailure = ExportError::clipboardFailed();
    EXPECT_THROW(runUntilDone(editor->outputModel().copyToClipboard()), ExportError);
    EXPECT_EQ(failureOfExport(), std::nullopt);
    EXPECT_EQ(exporter->savedPaths, QStringList{path});
    EXPECT_EQ(told, (QList<bool>{true, false, true, false, true, false, true, false}));
    EXPECT_FALSE(editor->canUndo());
}

TEST_F(EditorOutput, WhatIsChangedWhileItIsMadeDoesNotCount) {
    editor->loadCapture({picture()});
    renderer->gate.emplace();
    auto pending = editor->outputModel().exportImage(path, ExportFormat::png);
    EXPECT_TRUE(editor->outputModel().isExporting());
    editor->loadCapture({picture({30, 30})});
    renderer->gate->succeed();
    EXPECT_EQ(runUntilDone(std::move(pending)).byteCount, 200);
    EXPECT_FALSE(editor->outputModel().isExporting());
}

TEST_F(EditorOutput, OutlivesItsEditor) {
    editor->loadCapture({picture()});
    renderer->gate.emplace();
    auto pending = editor->outputModel().exportImage(path, ExportFormat::png);
    editor.reset();
    renderer->gate->succeed();
    EXPECT_EQ(runUntilDone(std::move(pending)).byteCount, 200);
    EXPECT_EQ(exporter->savedPaths, QStringList{path});
}

}  // namespace
}  // namespace kestrio
