#include "app/settings/SettingsViewModel.h"

#include "app/language/Translations.h"
#include "core/Localisation.h"

#include <QPointer>

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds writingDelay(300);

}  // namespace

SettingsViewModel::SettingsViewModel(SettingsServices services, QObject* parent)
    : QObject(parent), services_(std::move(services)) {
    set_settings(services_.settings->load());
    writing_.setSingleShot(true);
    writing_.setInterval(writingDelay);
    connect(&writing_, &QTimer::timeout, this, &SettingsViewModel::write);
    connect(services_.themeStorage.get(), &ThemeStorageServiceProtocol::themesChanged, this,
            &SettingsViewModel::reloadThemes);
    reloadThemes();
}

SettingsViewModel::~SettingsViewModel() {
    stop_.request_stop();
    if (writing_.isActive()) write();
}

void SettingsViewModel::change(const AppSettings& settings) {
    if (settings == this->settings()) return;
    set_settings(settings);
    writing_.start();
}

void SettingsViewModel::write() {
    writing_.stop();
    services_.settings->save(settings());
    services_.hotkeys->update(settings());
}

void SettingsViewModel::setLanguage(AppLanguage language) {
    AppSettings changed = settings();
    changed.appLanguage = language;
    change(changed);
    const QString key = languageKey();
    if (const auto code = languageCode(language)) {
        services_.userDefaults->setStringArray(key, {*code});
    } else {
        services_.userDefaults->remove(key);
    }
    services_.userDefaults->synchronise();
    set_needsRestart(true);
}

void SettingsViewModel::setLaunchAtLogin(bool isOn) {
    AppSettings changed = settings();
    changed.launchAtLogin = isOn;
    try {
        if (isOn) {
            services_.loginItem->registerItem();
        } else {
            services_.loginItem->unregisterItem();
        }
        set_message({});
        change(changed);
    } catch (const Error& error) {
        set_message(Kestrio::tr("Failed to set launch at login: %1").arg(describeFailure(error)));
        // A view shows the value that was asked for until it hears of another.
        Q_EMIT settingsChanged();
    }
}

Task<> SettingsViewModel::chooseSavePath() {
    const QPointer<SettingsViewModel> self(this);
    OpenPanelRequest request;
    request.title = Kestrio::tr("Select default save path");
    request.folder = settings().defaultSavePath;
    auto choosing = services_.fileDialogs->chooseFolder(std::move(request), stop_.get_token());
    const std::optional<QString> folder = co_await choosing;
    if (!self || !folder) co_return;
    AppSettings changed = settings();
    changed.defaultSavePath = *folder;
    change(changed);
}

void SettingsViewModel::deleteTheme(const QUuid& id) {
    try {
        services_.themeStorage->deleteTheme(id);
    } catch (const Error& error) {
        set_message(Kestrio::tr("Failed to delete preset: %1").arg(describeFailure(error)));
        return;
    }
    reloadThemes();
}

void SettingsViewModel::reloadThemes() {
    try {
        set_cachedThemes(services_.themeStorage->loadThemes());
    } catch (const Error& error) {
        set_message(describeFailure(error));
    }
}

void SettingsViewModel::restoreDefaultHotkeys() {
    const AppSettings defaults;
    AppSettings changed = settings();
    for (const HotkeyRow& row : hotkeyRows)
        changed.*row.config = defaults.*row.config;
    change(changed);
}

QString SettingsViewModel::conflict(HotkeyAction target, const HotkeyConfig& candidate) const {
    return hotkeyConflict(settings(), target, candidate, [this](HotkeyAction action) {
        return services_.hotkeys->hasHandler(action);
    });
}

}  // namespace kestrio
