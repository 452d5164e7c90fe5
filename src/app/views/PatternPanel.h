#pragma once

#include "app/settings/CustomPatternSettingsViewModel.h"

#include <QQmlEngine>
#include <QVariantMap>

namespace kestrio {

/// The patterns of private data as the settings window shows them. Holds no logic of them. Main
/// thread.
class PatternPanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the settings")
    /// Rows {id, name, description, isEnabled}; the user's own have their regex too.
    Q_PROPERTY(QVariantList builtIn READ builtIn NOTIFY patternsChanged)
    Q_PROPERTY(QVariantList custom READ custom NOTIFY patternsChanged)
    /// Rows {id, name, description, regex}.
    Q_PROPERTY(QVariantList examples READ examples CONSTANT)
    Q_PROPERTY(bool isSheetShown READ isSheetShown NOTIFY sheetChanged)
    Q_PROPERTY(QString sheetTitle READ sheetTitle NOTIFY sheetChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY editingChanged)
    Q_PROPERTY(QString regex READ regex WRITE setRegex NOTIFY editingChanged)
    Q_PROPERTY(QString description READ description WRITE setDescription NOTIFY editingChanged)
    /// What the expression that is being typed is worth, as a sentence; empty for none.
    Q_PROPERTY(QString validityText READ validityText NOTIFY editingChanged)
    Q_PROPERTY(bool isValid READ isValid NOTIFY editingChanged)
    Q_PROPERTY(bool canSave READ canSave NOTIFY editingChanged)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged)

  public:
    explicit PatternPanel(std::shared_ptr<PatternStorageServiceProtocol> storage,
                          QObject* parent = nullptr);

    QVariantList builtIn() const;
    QVariantList custom() const;
    QVariantList examples() const;
    bool isSheetShown() const { return model_.showAddEditSheet(); }
    QString sheetTitle() const;
    QString name() const { return model_.editingName(); }
    void setName(const QString& name) { model_.set_editingName(name); }
    QString regex() const { return model_.editingRegex(); }
    void setRegex(const QString& regex) { model_.set_editingRegex(regex); }
    QString description() const { return model_.editingDescription(); }
    void setDescription(const QString& text) { model_.set_editingDescription(text); }
    QString validityText() const;
    bool isValid() const { return model_.editingValidity() == RegexValidity::valid; }
    bool canSave() const { return model_.canSave(); }
    QString error() const { return model_.showError() ? model_.errorMessage() : QString(); }

    Q_INVOKABLE void setBuiltInEnabled(const QString& id, bool isEnabled);
    Q_INVOKABLE void setCustomEnabled(const QString& id, bool isEnabled);
    Q_INVOKABLE void add() { model_.startAdding(); }
    Q_INVOKABLE void edit(const QString& id) { model_.startEditing(QUuid(id)); }
    Q_INVOKABLE void useExample(const QString& id) { model_.useExample(QUuid(id)); }
    Q_INVOKABLE void remove(const QString& id) { model_.remove(QUuid(id)); }
    Q_INVOKABLE void save() { model_.save(); }
    Q_INVOKABLE void closeSheet() { model_.closeSheet(); }

    Q_SIGNAL void patternsChanged();
    Q_SIGNAL void sheetChanged();
    Q_SIGNAL void editingChanged();
    Q_SIGNAL void errorChanged();

  private:
    CustomPatternSettingsViewModel model_;
};

}  // namespace kestrio
