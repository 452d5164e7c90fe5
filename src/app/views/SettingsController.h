#pragma once

#include "app/settings/SettingsViewModel.h"
#include "app/settings/ShortcutRecorder.h"
#include "app/shell/PermissionManager.h"
#include "app/views/PatternPanel.h"
#include "app/views/SettingsFields.h"
#include "platform/Appearance.h"
#include "platform/DesktopWords.h"

#include <QQmlEngine>
#include <QVariantMap>

namespace kestrio {

/// The settings as their QML views see them: their fields and one operation for each thing that a
/// view offers. Main thread.
class SettingsController : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's owner makes it")
    Q_PROPERTY(kestrio::SettingsFields* fields READ fields CONSTANT)
    Q_PROPERTY(kestrio::PatternPanel* patterns READ patterns CONSTANT)
    /// Why no private data can be found on this machine; empty where it can.
    Q_PROPERTY(QString readingObstacle READ readingObstacle CONSTANT)
    Q_PROPERTY(QVariantList tabs READ tabs CONSTANT)
    Q_PROPERTY(QString tab READ tab WRITE setTab NOTIFY tabChanged)
    /// Rows {id, label, keys, isRecording, note} of the hotkeys that do something.
    Q_PROPERTY(QVariantList hotkeys READ hotkeys NOTIFY hotkeysChanged)
    /// Rows {id, name}.
    Q_PROPERTY(QVariantList themes READ themes NOTIFY themesChanged)
    /// What naming patterns may hold, each {id, name}.
    Q_PROPERTY(QVariantList namingVariables READ namingVariables CONSTANT)
    /// A file name as the naming pattern makes it now.
    Q_PROPERTY(QString exampleName READ exampleName NOTIFY exampleNameChanged)
    Q_PROPERTY(bool needsRestart READ needsRestart NOTIFY needsRestartChanged)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)
    Q_PROPERTY(bool isScreenReadable READ isScreenReadable NOTIFY permissionChanged)
    /// Why the screen cannot be read whatever the user grants; empty where that would help.
    Q_PROPERTY(QString screenObstacle READ screenObstacle NOTIFY permissionChanged)
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(QString openSettingsText READ openSettingsText CONSTANT)
    Q_PROPERTY(bool isDark READ isDark NOTIFY appearanceChanged)
    Q_PROPERTY(bool isMotionReduced READ isMotionReduced NOTIFY appearanceChanged)

  public:
    SettingsController(const SettingsServices& services,
                       std::shared_ptr<PermissionManager> permissions,
                       std::shared_ptr<Appearance> appearance, QObject* parent = nullptr);
    ~SettingsController() override;

    SettingsViewModel& model() { return model_; }

    SettingsFields* fields() { return &fields_; }
    PatternPanel* patterns() { return &patterns_; }
    QString readingObstacle() const;
    QVariantList tabs() const;
    QString tab() const { return rawString(model_.selectedTab()); }
    void setTab(const QString& id);
    QVariantList hotkeys() const;
    QVariantList themes() const;
    QString exampleName() const;
    QVariantList namingVariables() const;
    bool needsRestart() const { return model_.needsRestart(); }
    QString message() const { return model_.message(); }
    bool isScreenReadable() const { return permissions_->screenRecordingGranted(); }
    QString screenObstacle() const {
        return isScreenReadable() ? QString() : permissions_->obstacle();
    }
    QString openSettingsText() const { return desktopWords().openSettings; }
    QString version() const;
    bool isDark() const;
    bool isMotionReduced() const;

    Q_INVOKABLE void chooseSavePath();
    /// Starts recording a hotkey, or ends it without a change.
    Q_INVOKABLE void toggleRecording(int hotkey);
    Q_INVOKABLE void stopRecording();
    Q_INVOKABLE void restoreDefaultHotkeys();
    Q_INVOKABLE void deleteTheme(const QString& id);
    Q_INVOKABLE void openScreenSettings() { permissions_->openSettings(); }
    Q_INVOKABLE void refreshPermission() { permissions_->refresh(); }

    Q_SIGNAL void exampleNameChanged();
    Q_SIGNAL void tabChanged();
    Q_SIGNAL void hotkeysChanged();
    Q_SIGNAL void themesChanged();
    Q_SIGNAL void needsRestartChanged();
    Q_SIGNAL void messageChanged();
    Q_SIGNAL void permissionChanged();
    Q_SIGNAL void appearanceChanged();

  private:
    void relayModel();
    QVariantMap hotkeyValues(const HotkeyRow& row) const;
    QString hotkeyNote(const HotkeyRow& row) const;
    void adopt(const HotkeyConfig& config);

    SettingsViewModel model_;
    SettingsFields fields_{model_};
    PatternPanel patterns_;
    std::shared_ptr<TextRecognizer> textRecognizer_;
    std::shared_ptr<HotkeyManager> hotkeyManager_;
    std::shared_ptr<PermissionManager> permissions_;
    std::shared_ptr<Appearance> appearance_;
    ShortcutRecorder recorder_;
    /// Which hotkey the recorder records.
    HotkeyAction recorded_ = HotkeyAction::region;
};

}  // namespace kestrio
