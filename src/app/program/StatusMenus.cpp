#include "app/program/StatusMenus.h"

#include "app/shell/AppShortcuts.h"
#include "core/Localisation.h"

namespace kestrio {

namespace {

StatusMenuEntry entry(const char* title, std::function<void()> action) {
    StatusMenuEntry made;
    made.title = Kestrio::tr(title);
    made.action = std::move(action);
    return made;
}

// As AppShortcuts has it while a window of the program has the focus.
StatusMenuEntry keyEntry(const char* title, QKeyCombination keys, std::function<void()> action) {
    StatusMenuEntry made = entry(title, std::move(action));
    made.shortcut = combinationOf(keys);
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
        return entry(title,
                     [start = actions.captureLater, seconds, kind] { start(seconds, kind); });
    };
    StatusMenuEntry menu = entry(Kestrio::marked("Delayed Capture"), nullptr);
    menu.entries = {
        later(Kestrio::marked("Region Capture in 3s"), 3, CaptureKind::region),
        later(Kestrio::marked("Region Capture in 5s"), 5, CaptureKind::region),
        later(Kestrio::marked("Region Capture in 10s"), 10, CaptureKind::region),
        StatusMenuEntry(),
        later(Kestrio::marked("Window Capture in 3s"), 3, CaptureKind::window),
        later(Kestrio::marked("Window Capture in 5s"), 5, CaptureKind::window),
    };
    return menu;
}

}  // namespace

StatusMenu captureMenu(const AppSettings& settings, const StatusMenuActions& actions,
                       int countdown) {
    StatusMenu menu = {
        hotkeyEntry(Kestrio::marked("Region Capture"), settings.regionCaptureHotkey,
                    actions.captureRegion),
        hotkeyEntry(Kestrio::marked("Window Capture"), settings.windowCaptureHotkey,
                    actions.captureWindow),
        hotkeyEntry(Kestrio::marked("Scrolling Capture"), settings.scrollingCaptureHotkey,
                    actions.captureScrolling),
        entry(Kestrio::marked("Automatic Scrolling Capture"), actions.captureScrollingByItself),
        delayedCaptures(actions),
        StatusMenuEntry(),
        keyEntry(Kestrio::marked("Paste from Clipboard"), AppShortcuts::paste,
                 actions.pasteFromClipboard),
        keyEntry(Kestrio::marked("Import Image..."), AppShortcuts::importImage,
                 actions.importImage),
        StatusMenuEntry(),
        keyEntry(Kestrio::marked("Preferences..."), AppShortcuts::preferences,
                 actions.openSettings),
        StatusMenuEntry(),
        keyEntry(Kestrio::marked("Quit Kestrio"), AppShortcuts::quit, actions.quit),
    };
    if (countdown > 0) {
        StatusMenuEntry cancel = keyEntry(Kestrio::marked("Cancel Capture"),
                                          QKeyCombination(Qt::Key_Escape), actions.cancelCountdown);
        cancel.title = Kestrio::tr("Cancel Capture in %1s").arg(countdown);
        menu.insert(menu.begin(), {cancel, StatusMenuEntry()});
    }
    return menu;
}

}  // namespace kestrio
