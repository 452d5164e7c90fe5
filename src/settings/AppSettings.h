#pragma once

#include "core/Json.h"
#include "imaging/ExportFormat.h"
#include "settings/AppLanguage.h"
#include "settings/HotkeyConfig.h"

namespace kestrio {

/// Whether a scrolling capture follows the user's scrolling or scrolls by itself.
enum class ScrollingCaptureMode { manual, automatic };

inline constexpr EnumTable<ScrollingCaptureMode, 2> scrollingCaptureModes = {{
    {ScrollingCaptureMode::manual, "manual", Kestrio::marked("Manual scroll")},
    {ScrollingCaptureMode::automatic, "auto", Kestrio::marked("Auto scroll")},
}};
constexpr const auto& enumTable(ScrollingCaptureMode) {
    return scrollingCaptureModes;
}

/// The user's desktop folder, where pictures are saved unless set otherwise.
QString standardSavePath();

/// All preferences. Each key falls back to its default on its own when it is missing or unreadable,
/// so that old and hand-edited files keep working.
struct AppSettings {
    static constexpr int controlOption = HotkeyConfig::control | HotkeyConfig::option;

    bool launchAtLogin = false;
    AppLanguage appLanguage = AppLanguage::system;
    bool autoCopyToClipboard = true;
    QString defaultSavePath = standardSavePath();
    int historyRetentionLimit = 100;
    std::optional<QString> lastTranslationTargetLanguageIdentifier;
    ExportFormat defaultExportFormat = ExportFormat::webp;
    double defaultExportQuality = 0.85;
    QString fileNamingPattern = QStringLiteral("Kestrio_{date}_{sequence}");
    bool snapToWindowInRegionCapture = true;
    bool showMagnifierInRegionCapture = true;
    bool autoRedactOnCapture = false;
    ScrollingCaptureMode scrollingCaptureMode = ScrollingCaptureMode::manual;
    bool confirmBeforeEditing = true;
    bool autoCheckForUpdates = true;
    HotkeyConfig regionCaptureHotkey = {0, controlOption};
    HotkeyConfig windowCaptureHotkey = {13, controlOption};
    HotkeyConfig scrollingCaptureHotkey = {1, controlOption};
    HotkeyConfig historyHotkey = {4, controlOption};
    HotkeyConfig recordingHotkey = {15, controlOption};

    bool operator==(const AppSettings&) const = default;

    static constexpr auto jsonFields() {
        using S = AppSettings;
        return std::tuple(
            defaultedField("launchAtLogin", &S::launchAtLogin),
            defaultedField("appLanguage", &S::appLanguage),
            defaultedField("autoCopyToClipboard", &S::autoCopyToClipboard),
            defaultedField("defaultSavePath", &S::defaultSavePath),
            defaultedField("historyRetentionLimit", &S::historyRetentionLimit),
            defaultedField("lastTranslationTargetLanguageIdentifier",
                           &S::lastTranslationTargetLanguageIdentifier),
            defaultedField("defaultExportFormat", &S::defaultExportFormat),
            defaultedField("defaultExportQuality", &S::defaultExportQuality),
            defaultedField("fileNamingPattern", &S::fileNamingPattern),
            defaultedField("snapToWindowInRegionCapture", &S::snapToWindowInRegionCapture),
            defaultedField("showMagnifierInRegionCapture", &S::showMagnifierInRegionCapture),
            defaultedField("autoRedactOnCapture", &S::autoRedactOnCapture),
            defaultedField("scrollingCaptureMode", &S::scrollingCaptureMode),
            defaultedField("confirmBeforeEditing", &S::confirmBeforeEditing),
            defaultedField("autoCheckForUpdates", &S::autoCheckForUpdates),
            defaultedField("regionCaptureHotkey", &S::regionCaptureHotkey),
            defaultedField("windowCaptureHotkey", &S::windowCaptureHotkey),
            defaultedField("scrollingCaptureHotkey", &S::scrollingCaptureHotkey),
            defaultedField("historyHotkey", &S::historyHotkey),
            defaultedField("recordingHotkey", &S::recordingHotkey));
    }
};

}  // namespace kestrio
