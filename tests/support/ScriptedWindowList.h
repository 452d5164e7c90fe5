#pragma once

#include "platform/WindowList.h"

#include <algorithm>

namespace kestrio {

/// Windows that a test opens.
class ScriptedWindowList : public WindowList {
  public:
    std::vector<WindowInfo> windows;       ///< from front to back
    mutable std::vector<double> requests;  ///< the minimum size of each

    std::vector<WindowInfo> windowsOnScreen(double minimumSize) const override {
        requests.push_back(minimumSize);
        std::vector<WindowInfo> found;
        std::copy_if(windows.begin(), windows.end(), std::back_inserter(found),
                     [minimumSize](const WindowInfo& window) {
                         return window.isOnScreen && window.bounds.width() > minimumSize &&
                                window.bounds.height() > minimumSize;
                     });
        return found;
    }
};

}  // namespace kestrio
