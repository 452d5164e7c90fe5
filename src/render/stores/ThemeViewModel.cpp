#include "render/stores/ThemeViewModel.h"

namespace kestrio {

ThemeViewModel::ThemeViewModel(std::shared_ptr<ThemeStorageServiceProtocol> storageService,
                               QObject* parent)
    : QObject(parent), storageService_(std::move(storageService)) {
    connect(storageService_.get(), &ThemeStorageServiceProtocol::themesChanged, this,
            &ThemeViewModel::reload);
    reload();
}

void ThemeViewModel::reload() {
    set_isLoading(true);
    std::vector<Theme> user;
    try {
        user = storageService_->loadThemes();
    } catch (const ThemeStorageError& error) {
        // What a save or deletion has just reported is the better message.
        if (errorMessage().isEmpty()) set_errorMessage(error.errorDescription());
    }
    set_userThemes(std::move(user));
    set_isLoading(false);
}

void ThemeViewModel::saveTheme(const QString& name, const EditorStyleSettings& style) {
    const Theme theme = Theme::make(name, style);
    set_errorMessage({});
    try {
        storageService_->saveTheme(theme);
        set_selectedTheme(theme);
    } catch (const ThemeStorageError& error) {
        set_errorMessage(Kestrio::tr("Failed to save theme: %1").arg(error.errorDescription()));
    }
    reload();
}

void ThemeViewModel::updateTheme(const Theme& theme) {
    set_errorMessage({});
    try {
        storageService_->updateTheme(theme);
        if (selectedTheme() && selectedTheme()->id == theme.id) set_selectedTheme(theme);
    } catch (const ThemeStorageError& error) {
        set_errorMessage(Kestrio::tr("Failed to save theme: %1").arg(error.errorDescription()));
    }
    reload();
}

void ThemeViewModel::deleteTheme(QUuid id) {
    set_errorMessage({});
    try {
        storageService_->deleteTheme(id);
        if (selectedTheme() && selectedTheme()->id == id) set_selectedTheme(std::nullopt);
    } catch (const ThemeStorageError& error) {
        set_errorMessage(error.errorDescription());
    }
    reload();
}

}  // namespace kestrio
