#pragma once

#include "app/capture/CaptureRequest.h"
#include "platform/StatusItem.h"
#include "settings/AppSettings.h"

namespace kestrio {

/// What the entries of the status item's menu do.
struct StatusMenuActions {
    std::function<void()> captureRegion;
    std::function<void()> captureWindow;
    std::function<void()> captureScrolling;  ///< in the mode of the settings
    std::function<void()> captureScrollingByItself;
    std::function<void(int seconds, CaptureKind kind)> captureLater;
    std::function<void()> cancelCountdown;
    std::function<void()> pasteFromClipboard;
    std::function<void()> importImage;
    std::function<void()> openSettings;
    std::function<void()> quit;
};

/// The menu as long as nothing is recorded, with the hotkeys that the settings have now. While a
/// timed capture counts down, which has `countdown` seconds left, it can be called off.
StatusMenu captureMenu(const AppSettings& settings, const StatusMenuActions& actions,
                       int countdown = 0);

}  // namespace kestrio
