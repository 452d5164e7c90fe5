#include "app/capture/EditorSteps.h"

namespace kestrio {

namespace {

void takeOverAnnotations(EditorViewModel& editor, const RegionCaptureOutcome& outcome) {
    if (outcome.choice.annotations.empty() && !outcome.choice.tool && !outcome.choice.toolColor)
        return;
    editor.startAnnotating(outcome.choice.annotations, outcome.choice.tool,
                           outcome.choice.toolColor);
}

void redactWhereWanted(AppSettingsServiceProtocol& settings, EditorViewModel& editor) {
    if (settings.load().autoRedactOnCapture) launch(editor.autoRedaction().autoRedact(), &editor);
}

void readText(EditorViewModel& editor, const RegionCaptureOutcome& outcome) {
    if (outcome.choice.action == CaptureAction::ocr) launch(editor.performOCR(), &editor);
}

}  // namespace

std::vector<EditorStep> standardEditorSteps(std::shared_ptr<AppSettingsServiceProtocol> settings) {
    const EditorStep redact = [settings](EditorViewModel& editor, const RegionCaptureOutcome&) {
        redactWhereWanted(*settings, editor);
    };
    return {takeOverAnnotations, redact, readText};
}

}  // namespace kestrio
