#pragma once

#include "core/UserDefaults.h"
#include "render/style/Theme.h"

#include <QObject>
#include <memory>

namespace kestrio {

/// Every way in which themes cannot be kept or found.
class ThemeStorageError : public Error {
  public:
    enum class Case { themeNotFound, duplicateName, encodingFailed, decodingFailed };

    static ThemeStorageError themeNotFound(QUuid id);
    static ThemeStorageError duplicateName(const QString& name);
    static ThemeStorageError encodingFailed() { return {Case::encodingFailed, {}}; }
    static ThemeStorageError decodingFailed() { return {Case::decodingFailed, {}}; }

    Case errorCase() const { return case_; }
    QString errorDescription() const override;

  private:
    ThemeStorageError(Case errorCase, QString subject)
        : case_(errorCase), subject_(std::move(subject)) {}

    Case case_;
    QString subject_;
};

/// Keeps the user's themes; one for all that show them, so that each hears of every change. Every
/// operation throws ThemeStorageError. Main thread.
class ThemeStorageServiceProtocol : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    /// In the order in which they were saved; none where nothing was ever saved.
    virtual std::vector<Theme> loadThemes() = 0;
    /// Appends. Refuses the exact name of another theme of the user's.
    virtual void saveTheme(const Theme& theme) = 0;
    /// Replaces the theme of the same id, in its place.
    virtual void updateTheme(const Theme& theme) = 0;
    virtual void deleteTheme(QUuid id) = 0;

    Q_SIGNAL void themesChanged();
};

/// Keeps them as one JSON list at "com.kestrio.savedThemes".
class ThemeStorageService : public ThemeStorageServiceProtocol {
    Q_OBJECT

  public:
    explicit ThemeStorageService(std::shared_ptr<UserDefaults> userDefaults)
        : userDefaults_(std::move(userDefaults)) {}

    std::vector<Theme> loadThemes() override;
    void saveTheme(const Theme& theme) override;
    void updateTheme(const Theme& theme) override;
    void deleteTheme(QUuid id) override;

  private:
    void write(const std::vector<Theme>& themes);

    std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace kestrio
