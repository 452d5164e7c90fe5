#include "app/capture/EditorSteps.h"

namespace kestrio {

namespace {

void takeOverAnnotations(EditorViewModel& editor, const RegionCaptureOutcome& outcome) {
    if (outcome.choice.annotations.empty() && !outcome.choice.tool && !outcome.choice.toolColor)
        return;
    editor.startAnnotating(outcome.choice.annotations, outcome.choice.tool,
                           outcome.choice.toolColor);
}

void readText(EditorViewModel& editor, const RegionCaptureOutcome& outcome) {
    if (outcome.choice.action == CaptureAction::ocr) launch(editor.performOCR(), &editor);
}

}  // namespace

std::vector<EditorStep> standardEditorSteps() {
    return {takeOverAnnotations, readText};
}

}  // namespace kestrio
