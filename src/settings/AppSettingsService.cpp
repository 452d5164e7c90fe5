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

namespace {

// Settings may be edited by hand: "~" is the home folder, and what is no absolute path is counted
// from there and not from wherever the program was started.
QString expandedFolder(const QString& folder) {
    if (folder.isEmpty()) return standardSavePath();
    if (folder.startsWith(u'/')) return folder;
    if (folder == u"~" || folder.startsWith(u"~/")) return QDir::homePath() + folder.mid(1);
    return QDir::homePath() + u'/' + folder;
}

}  // namespace

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
        settings.defaultSavePath = expandedFolder(settings.defaultSavePath);
        cachedSettings_ = settings;
    }
    return *cachedSettings_;
}

void AppSettingsService::save(const AppSettings& settings) {
    cachedSettings_ = settings;
    cachedSettings_->defaultSavePath = expandedFolder(settings.defaultSavePath);
    try {
        userDefaults_->setData(settingsKey, encodeJsonText(settings));
    } catch (const JsonError&) {
        // The cache stays; the file keeps the last state that could be written.
    }
}

}  // namespace kestrio
