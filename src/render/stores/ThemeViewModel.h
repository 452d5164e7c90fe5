#pragma once

#include "core/Published.h"
#include "render/stores/ThemeStorageService.h"

#include <QObject>

namespace kestrio {

/// The list of the user's own themes.
class ThemeViewModel : public QObject {
    Q_OBJECT
    PUBLISHED(std::vector<Theme>, userThemes, {})
    PUBLISHED(std::optional<Theme>, selectedTheme, std::nullopt)
    PUBLISHED(QString, errorMessage, {})
    PUBLISHED(bool, isLoading, false)

  public:
    explicit ThemeViewModel(std::shared_ptr<ThemeStorageServiceProtocol> storageService,
                            QObject* parent = nullptr);

    /// Reads the user's themes again. Where that fails none is listed and errorMessage says.
    void reload();
    /// Saves a style under a name and selects it. Failure is reported in errorMessage.
    void saveTheme(const QString& name, const EditorStyleSettings& style);
    /// Replaces the theme of the same id. Failure is reported in errorMessage.
    void updateTheme(const Theme& theme);
    void deleteTheme(QUuid id);
    void select(const std::optional<Theme>& theme) { set_selectedTheme(theme); }

  private:
    std::shared_ptr<ThemeStorageServiceProtocol> storageService_;
};

}  // namespace kestrio
