#pragma once

#include "editor/document/EditorViewModel.h"
#include "render/stores/ThemeViewModel.h"

#include <QQmlEngine>
#include <QVariantMap>

namespace kestrio {

/// The strip of built-in styles and of the user's own. Main thread.
class ThemePanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    Q_PROPERTY(QVariantList presets READ presets CONSTANT)
    /// The user's own, each {id, name}.
    Q_PROPERTY(QVariantList themes READ themes NOTIFY themesChanged)
    /// The id of the style that holds unchanged, and empty where none does.
    Q_PROPERTY(QString currentPreset READ currentPreset NOTIFY currentChanged)
    Q_PROPERTY(QString currentTheme READ currentTheme NOTIFY currentChanged)

  public:
    ThemePanel(EditorViewModel& editor, std::shared_ptr<ThemeStorageServiceProtocol> themes,
               QObject* parent = nullptr);

    QVariantList presets() const;
    QVariantList themes() const;
    QString currentPreset() const;
    QString currentTheme() const;
    const std::vector<Theme>& userThemes() const { return themes_.userThemes(); }

    Q_INVOKABLE void applyPreset(const QString& id);
    Q_INVOKABLE void applyTheme(const QString& id);
    /// Whether a theme has this name, other than the one of the id.
    Q_INVOKABLE bool isNameTaken(const QString& name, const QString& id) const;
    /// Keeps the present style under a name, in the place of a theme that has it, and reports the
    /// result.
    Q_INVOKABLE void save(const QString& name);
    /// Makes the present style that of a theme.
    Q_INVOKABLE void overwrite(const QString& id);
    Q_INVOKABLE void rename(const QString& id, const QString& name);
    Q_INVOKABLE void remove(const QString& id);
    /// Says that saved themes cannot be read.
    void reportLoadProblem();

    Q_SIGNAL void themesChanged();
    Q_SIGNAL void currentChanged();

  private:
    const Theme* find(const QString& id) const;
    bool reportFailure();

    EditorViewModel& editor_;
    ThemeViewModel themes_;
};

}  // namespace kestrio
