#pragma once

#include "annotation/editing/AnnotationTool.h"
#include "annotation/model/AnyAnnotation.h"
#include "capture/CaptureAction.h"

#include <optional>
#include <vector>

namespace kestrio {

/// What the user decided about a region, beside which one it is.
struct RegionChoice {
    CaptureAction action = CaptureAction::edit;
    std::vector<AnyAnnotation> annotations = {};
    /// What the editor starts with, where something was chosen.
    std::optional<AnnotationTool> tool = std::nullopt;
    std::optional<CodableColor> toolColor = std::nullopt;
};

}  // namespace kestrio
