#pragma once

#include "editor/commands/EditorCommand.h"
#include "editor/keyboard/ShortcutHintManager.h"

#include <QPointer>

namespace kestrio {

/// A key that was pressed in the editor's window, as the toolkit reports it: the command key is
/// Qt::ControlModifier, control Qt::MetaModifier, option Qt::AltModifier.
struct KeyPress {
    int key = 0;  ///< Qt::Key
    Qt::KeyboardModifiers modifiers;
    QString text;                ///< what it types
    bool isTextFocused = false;  ///< a text field has the keyboard
};

/// Turns keys of the editor's window into commands and tools; those of the window's scope come as
/// shortcuts instead. Views feed it; it asks no view anything.
class AnnotationKeyboardHandler {
  public:
    /// Editor and hints may go before the handler, which then takes no key any more or marks none
    /// as used.
    AnnotationKeyboardHandler(EditorViewModel& editor, EditorActions& actions,
                              ShortcutHintManager* hints)
        : editor_(&editor), actions_(actions), hints_(hints) {}

    bool isActive() const { return isActive_; }
    void activate() { isActive_ = true; }
    void deactivate() { isActive_ = false; }

    /// Whether the key was taken; all others go on to whoever wants them.
    bool handle(const KeyPress& press);

  private:
    bool runCommand(CommandScope scope, const KeyPress& press);
    bool chooseTool(const KeyPress& press);
    void markUsed(const QString& action);

    QPointer<EditorViewModel> editor_;
    EditorActions& actions_;
    QPointer<ShortcutHintManager> hints_;
    bool isActive_ = false;
};

}  // namespace kestrio
