#include "app/shell/StatusMenus.h"

#include "core/Localisation.h"

namespace kestrio {

namespace {

StatusMenuEntry entry(const char* title, std::function<void()> action) {
    StatusMenuEntry made;
    made.title = localised(title);
    made.action = std::move(action);
    return made;
}

StatusMenuEntry hotkeyEntry(const char* title, const HotkeyConfig& hotkey,
                            std::function<void()> action) {
    StatusMenuEntry made = entry(title, std::move(action));
    made.shortcut = KeyCombination{hotkey.keyCode, hotkey.carbonModifiers};
    return made;
}

StatusMenuEntry delayedCaptures(const StatusMenuActions& actions) {
    const auto later = [&](const char* title, int seconds, CaptureKind kind) {
        return entry(title, [start = actions.captureLater, seconds, kind] { start(seconds, kind); });
    };
    StatusMenuEntry menu = entry("Delayed Capture", nullptr);
    menu.entries = {
        later("Region Capture in 3s", 3, CaptureKind::region),
        later("Region Capture in 5s", 5, CaptureKind::region),
        later("Region Capture in 10s", 10, CaptureKind::region),
        StatusMenuEntry(),
        later("Window Capture in 3s", 3, CaptureKind::window),
        later("Window Capture in 5s", 5, CaptureKind::window),
    };
    return menu;
}

}  // namespace

StatusMenu captureMenu(const AppSettings& settings, const StatusMenuActions& actions) {
    return {
        hotkeyEntry("Region Capture", settings.regionCaptureHotkey, actions.captureRegion),
        hotkeyEntry("Window Capture", settings.windowCaptureHotkey, actions.captureWindow),
        delayedCaptures(actions),
        StatusMenuEntry(),
        entry("Paste from Clipboard", actions.pasteFromClipboard),
        entry("Import Image...", actions.importImage),
        StatusMenuEntry(),
        entry("Preferences...", actions.openSettings),
        StatusMenuEntry(),
        entry("Quit Kestrio", actions.quit),
    };
}

}  // namespace kestrio
