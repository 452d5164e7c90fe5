#include "app/capture/EditorSteps.h"

namespace kestrio {

namespace {

void takeOverAnnotations(EditorViewModel& editor, const RegionCaptureOutcome& outcome) {
    if (outcome.choice.annotations.empty() && !outcome.choice.tool && !outcome.choice.toolColor)
        return;
    editor.startAnnotating(outcome.choice.annotations, outcome.choice.tool,
                           outcome.choice.toolColor);
}

}  // namespace

std::vector<EditorStep> standardEditorSteps() {
    return {takeOverAnnotations};
}

}  // namespace kestrio
