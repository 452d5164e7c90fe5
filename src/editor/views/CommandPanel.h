#pragma once

#include "editor/commands/EditorCommand.h"
#include "editor/keyboard/AnnotationKeyboardHandler.h"
#include "editor/keyboard/ShortcutHintManager.h"
#include "editor/views/ColorPanel.h"
#include "editor/views/OutputPanel.h"
#include "editor/views/SharePanel.h"

namespace kestrio {

/// The editor's commands as buttons, menus, shortcuts and the list of shortcuts show them. What
/// opens something of the window goes on as a signal. Main thread.
class CommandPanel : public QObject, private EditorActions {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    /// By command: {title, key}; the key in portable form, empty where it has none.
    Q_PROPERTY(QVariantMap infos READ infos CONSTANT)
    /// By command, whether it can be done now.
    Q_PROPERTY(QVariantMap enabled READ enabled NOTIFY enabledChanged)
    /// Those of the whole window, each {id, keys}.
    Q_PROPERTY(QVariantList shortcuts READ shortcuts CONSTANT)
    /// Two columns of categories for the list of shortcuts, each {name, rows}.
    Q_PROPERTY(QVariantList columns READ columns CONSTANT)

  public:
    struct Panels {
        ColorPanel& colors;
        OutputPanel& output;
        const SharePanel& share;
    };

    CommandPanel(EditorViewModel& editor, ShortcutHintManager& hints, Panels panels,
                 QObject* parent = nullptr);

    QVariantMap infos() const;
    QVariantMap enabled() const;
    QVariantList shortcuts() const;
    QVariantList columns() const;

    /// By a button or menu, which may bring the command's key to mind, once. Nothing happens where
    /// it is not enabled.
    Q_INVOKABLE void run(const QString& id);
    Q_INVOKABLE void runByKey(const QString& id);
    /// A key that nothing with the focus took; true where it was a command or a tool.
    bool handleKey(const KeyPress& press) { return keyboard_.handle(press); }

    Q_SIGNAL void enabledChanged();
    Q_SIGNAL void pasteRequested();
    Q_SIGNAL void saveRequested();
    Q_SIGNAL void shareRequested();
    Q_SIGNAL void closeRequested();

  private:
    void copy() override { panels_.output.copy(); }
    void paste() override { Q_EMIT pasteRequested(); }
    void pin() override { panels_.output.pin(); }
    void save() override { Q_EMIT saveRequested(); }
    void share() override { Q_EMIT shareRequested(); }
    void pickColor() override { panels_.colors.toggle(); }
    void closeWindow() override { Q_EMIT closeRequested(); }
    bool isBusy() const override { return panels_.output.isBusy() || panels_.share.isBusy(); }
    bool runEnabled(const QString& id);

    EditorViewModel& editor_;
    ShortcutHintManager& hints_;
    Panels panels_;
    AnnotationKeyboardHandler keyboard_;
};

}  // namespace kestrio
