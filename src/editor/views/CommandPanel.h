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
    /// Changes whenever some command can be done that could not be, or the other way round.
    Q_PROPERTY(int revision READ revision NOTIFY enabledChanged)
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

    int revision() const { return revision_; }
    QVariantList shortcuts() const;
    QVariantList columns() const;

    Q_INVOKABLE QString title(const QString& id) const;
    /// In portable form.
    Q_INVOKABLE QString key(const QString& id) const;
    /// Whether it can be done now. Bindings read `revision` too.
    Q_INVOKABLE bool isEnabled(const QString& id) const;
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
    void refreshEnabled();

    EditorViewModel& editor_;
    ShortcutHintManager& hints_;
    Panels panels_;
    AnnotationKeyboardHandler keyboard_;
    std::vector<bool> enabled_;  ///< by command
    int revision_ = 0;
};

}  // namespace kestrio
