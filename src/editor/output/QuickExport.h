#pragma once

#include "editor/document/EditorViewModel.h"
#include "settings/AppSettings.h"

namespace kestrio {

/// Writes the finished picture as quick saves of captures are written: in the format and under the
/// naming pattern of the settings, in `folder`, or in the save folder where that is empty. Hidden
/// blurs are shown for it. Throws what EditorViewModel::exportImage() throws.
Task<SavedFile> quickExport(EditorViewModel& editor, AppSettings settings,
                            const QString& folder = {});

}  // namespace kestrio
