#include "render/stores/ThemeStorageService.h"

namespace kestrio {

namespace {

const QString themesKey = QStringLiteral("com.kestrio.savedThemes");

// `own` is the theme that may keep its name.
void requireFreeName(const std::vector<Theme>& themes, const QString& name,
                     std::optional<QUuid> own = std::nullopt) {
    for (const Theme& theme : themes) {
        if (theme.name == name && theme.id != own) throw ThemeStorageError::duplicateName(name);
    }
}

auto findTheme(std::vector<Theme>& themes, QUuid id) {
    const auto found = std::find_if(themes.begin(), themes.end(),
                                    [&](const Theme& theme) { return theme.id == id; });
    if (found == themes.end()) throw ThemeStorageError::themeNotFound(id);
    return found;
}

}  // namespace

ThemeStorageError ThemeStorageError::themeNotFound(QUuid id) {
    return {Case::themeNotFound, id.toString(QUuid::WithoutBraces).toUpper()};
}

ThemeStorageError ThemeStorageError::duplicateName(const QString& name) {
    return {Case::duplicateName, name};
}

QString ThemeStorageError::errorDescription() const {
    switch (case_) {
        case Case::themeNotFound:
            return Kestrio::tr("Theme not found: %1").arg(subject_);
        case Case::duplicateName:
            return Kestrio::tr("Theme name already exists: %1").arg(subject_);
        case Case::encodingFailed:
            return Kestrio::tr("Theme encoding failed");
        case Case::decodingFailed:
            return Kestrio::tr("Theme decoding failed");
    }
    return {};
}

std::vector<Theme> ThemeStorageService::loadThemes() {
    const auto data = userDefaults_->data(themesKey);
    if (!data) return {};
    try {
        return decodeJsonText<std::vector<Theme>>(*data);
    } catch (const JsonError&) {
        throw ThemeStorageError::decodingFailed();
    }
}

void ThemeStorageService::saveTheme(const Theme& theme) {
    auto themes = loadThemes();
    requireFreeName(themes, theme.name);
    themes.push_back(theme);
    write(themes);
}

void ThemeStorageService::updateTheme(const Theme& theme) {
    auto themes = loadThemes();
    const auto place = findTheme(themes, theme.id);
    requireFreeName(themes, theme.name, theme.id);
    *place = theme;
    write(themes);
}

void ThemeStorageService::deleteTheme(QUuid id) {
    auto themes = loadThemes();
    themes.erase(findTheme(themes, id));
    write(themes);
}

void ThemeStorageService::write(const std::vector<Theme>& themes) {
    try {
        userDefaults_->setData(themesKey, encodeJsonText(themes));
    } catch (const JsonError&) {
        throw ThemeStorageError::encodingFailed();
    }
    Q_EMIT themesChanged();
}

}  // namespace kestrio
