#include "settings/AppSettingsService.h"

#include <QDir>
#include <QStandardPaths>

namespace kestrio {

namespace {
const QString settingsKey = QStringLiteral("com.kestrio.appSettings");
}

QString standardSavePath() {
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    return desktop.isEmpty() ? QDir::homePath() + QStringLiteral("/Desktop") : desktop;
}

AppSettings AppSettingsService::read() const {
    if (const auto blob = userDefaults_->data(settingsKey)) {
        try {
            return decodeJsonText<AppSettings>(*blob);
        } catch (const JsonError&) {
            // An unreadable blob counts as none.
        }
    }
    return {};
}

AppSettings AppSettingsService::load() {
    if (!cachedSettings_) {
        AppSettings settings = read();
        settings.historyRetentionLimit = std::clamp(settings.historyRetentionLimit, 10, 1000);
        settings.defaultExportQuality = std::clamp(settings.defaultExportQuality, 0.1, 1.0);
        cachedSettings_ = settings;
    }
    return *cachedSettings_;
}

void AppSettingsService::save(const AppSettings& settings) {
    cachedSettings_ = settings;
    try {
        userDefaults_->setData(settingsKey, encodeJsonText(settings));
    } catch (const JsonError&) {
        // The cache stays; the file keeps the last state that could be written.
    }
}

}  // namespace kestrio
