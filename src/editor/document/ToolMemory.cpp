#include "editor/document/ToolMemory.h"

namespace kestrio {

ToolMemory::ToolMemory(AnnotationViewModel& annotations, std::shared_ptr<UserDefaults> userDefaults)
    : annotations_(annotations), templates_(std::move(userDefaults)) {
    using Annotations = AnnotationViewModel;
    connect(&annotations, &Annotations::currentToolChanged, this, &ToolMemory::recall);
    connect(&annotations, &Annotations::toolSettingsChosen, this, &ToolMemory::remember);
}

void ToolMemory::recall() {
    const AnnotationTool tool = annotations_.currentTool();
    if (tool == AnnotationTool::select) return;
    if (const auto settings = templates_.load<ToolSettings>(toolId(tool))) {
        annotations_.set_toolSettings(*settings);
    }
}

void ToolMemory::remember() {
    const AnnotationTool tool = annotations_.currentTool();
    if (tool != AnnotationTool::select) {
        templates_.save(toolId(tool), annotations_.toolSettings());
    }
}

}  // namespace kestrio
