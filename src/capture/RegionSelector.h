#pragma once

#include "capture/RegionChoice.h"
#include "core/Task.h"
#include "imaging/Image.h"

#include <functional>

namespace kestrio {

/// How a region is chosen.
struct RegionSelectionOptions {
    bool confirms = true;   ///< the user adjusts and decides before anything happens
    bool snaps = true;      ///< a click takes the window under the pointer
    bool magnifies = true;  ///< a magnifier follows the pointer
    /// Called at each input, where it is set; a choice without any is taken for hung.
    std::function<void()> onInput = nullptr;
};

/// What the user chose. `rect` is in points of the desktop. Without a picture the screen has to be
/// captured now.
struct RegionCaptureResult {
    QRectF rect;
    Image image;
    RegionChoice choice;
};

/// Lets the user choose a part of the display under the pointer. Main thread only.
class RegionSelector {
  public:
    virtual ~RegionSelector() = default;

    /// Throws Cancelled where the user or a stop ends it, and CaptureError.
    virtual Task<RegionCaptureResult> select(RegionSelectionOptions options,
                                             std::stop_token stop) = 0;
};

}  // namespace kestrio
