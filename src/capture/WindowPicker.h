#pragma once

#include "core/Task.h"
#include "platform/WindowList.h"

#include <functional>
#include <optional>

namespace kestrio {

/// Lets the user choose a window on the display under the pointer. Main thread only.
class WindowPicker {
  public:
    virtual ~WindowPicker() = default;

    /// Nothing where the user clicked beside all windows. Throws Cancelled where the user or a stop
    /// ends it, and CaptureError. `onInput` is called at each input; a choice without any is taken
    /// for hung.
    virtual Task<std::optional<WindowInfo>> pick(std::function<void()> onInput,
                                                 std::stop_token stop) = 0;
};

/// The frontmost window that holds a point of the desktop; null where none does.
const WindowInfo* windowAt(QPointF point, const std::vector<WindowInfo>& windows);

/// Windows must be wider and taller than this to be offered, in points.
inline constexpr double smallestOfferedWindow = 50;

}  // namespace kestrio
