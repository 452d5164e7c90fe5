#include "editor/document/ToolMemory.h"

namespace kestrio {

namespace {

QString nameOf(AnnotationTool tool) {
    return QString::fromLatin1(annotationToolInfo(tool).name).toLower();
}

}  // namespace

ToolMemory::ToolMemory(AnnotationViewModel& annotations, std::shared_ptr<UserDefaults> userDefaults)
    : annotations_(annotations), templates_(std::move(userDefaults)) {
    using Annotations = AnnotationViewModel;
    connect(&annotations, &Annotations::currentToolChanged, this, &ToolMemory::recall);
    connect(&annotations, &Annotations::toolSettingsChosen, this, &ToolMemory::remember);
}

void ToolMemory::recall() {
    const AnnotationTool tool = annotations_.currentTool();
    if (tool == AnnotationTool::select) return;
    if (const auto settings = templates_.load<ToolSettings>(nameOf(tool))) {
        annotations_.set_toolSettings(*settings);
    }
}

void ToolMemory::remember() {
    const AnnotationTool tool = annotations_.currentTool();
    if (tool != AnnotationTool::select) {
        templates_.save(nameOf(tool), annotations_.toolSettings());
    }
}

}  // namespace kestrio
