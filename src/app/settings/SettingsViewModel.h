#pragma once

#include "app/hotkeys/HotkeyManager.h"
#include "app/settings/SettingsTab.h"
#include "platform/FileDialogs.h"
#include "platform/LoginItem.h"
#include "platform/TextRecognizer.h"
#include "render/stores/ThemeStorageService.h"
#include "settings/AppSettingsService.h"
#include "text/patterns/PatternStorageService.h"

#include <QTimer>

namespace kestrio {

/// What the settings window works with.
struct SettingsServices {
    std::shared_ptr<AppSettingsServiceProtocol> settings;
    std::shared_ptr<UserDefaults> userDefaults;
    std::shared_ptr<ThemeStorageServiceProtocol> themeStorage;
    std::shared_ptr<HotkeyManager> hotkeys;
    std::shared_ptr<LoginItem> loginItem;
    std::shared_ptr<FileDialogs> fileDialogs;
    std::shared_ptr<PatternStorageServiceProtocol> patterns;
    std::shared_ptr<TextRecognizer> textRecognizer;  ///< may be null
};

/// The settings as the settings window edits them. Changes are written and take effect a moment
/// after the last one. Main thread.
class SettingsViewModel : public QObject {
    Q_OBJECT
    PUBLISHED(AppSettings, settings, {})
    PUBLISHED_WRITABLE(SettingsTab, selectedTab, SettingsTab::general)
    PUBLISHED(std::vector<Theme>, cachedThemes, {})
    /// A changed language counts from the next start on.
    PUBLISHED(bool, needsRestart, false)
    /// The last failure, for users; empty where all is well.
    PUBLISHED(QString, message, {})

  public:
    explicit SettingsViewModel(SettingsServices services, QObject* parent = nullptr);
    /// Writes what still waits.
    ~SettingsViewModel() override;

    void change(const AppSettings& settings);
    void setLanguage(AppLanguage language);
    void setLaunchAtLogin(bool isOn);
    /// Asks for the folder of quick saves. Ends quietly where the panel is dismissed.
    Task<> chooseSavePath();
    void deleteTheme(const QUuid& id);
    void restoreDefaultHotkeys();

    /// What stands against a combination; empty where nothing does.
    QString conflict(HotkeyAction target, const HotkeyConfig& candidate) const;

  private:
    void write();
    void reloadThemes();

    SettingsServices services_;
    QTimer writing_;
    std::stop_source stop_;
};

}  // namespace kestrio
