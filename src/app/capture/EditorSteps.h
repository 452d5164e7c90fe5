#pragma once

#include "capture/ScreenCaptureServiceProtocol.h"
#include "editor/document/EditorViewModel.h"

#include <functional>
#include <vector>

namespace kestrio {

/// What is done to the document of a capture once its window is up, with what the capture brought
/// along. Steps of captures that brought nothing for them do nothing; what takes long, a step
/// starts and does not wait for.
using EditorStep = std::function<void(EditorViewModel&, const RegionCaptureOutcome&)>;

/// The steps of the program, in the order in which they are carried out.
std::vector<EditorStep> standardEditorSteps(std::shared_ptr<AppSettingsServiceProtocol> settings);

}  // namespace kestrio
