#pragma once

#include "editor/commands/EditorActions.h"
#include "editor/document/EditorViewModel.h"

#include <QKeySequence>
#include <span>

namespace kestrio {

/// The headings under which shortcuts are listed.
enum class ShortcutCategory { tools, editing, selection, view };

inline constexpr EnumTable<ShortcutCategory, 4> shortcutCategories = {{
    {ShortcutCategory::tools, "tools", Kestrio::marked("Tools")},
    {ShortcutCategory::editing, "editing", Kestrio::marked("Editing")},
    {ShortcutCategory::selection, "selection", Kestrio::marked("Selection")},
    {ShortcutCategory::view, "view", Kestrio::marked("View")},
}};
constexpr const auto& enumTable(ShortcutCategory) {
    return shortcutCategories;
}

/// When the keys of a command belong to it.
enum class CommandScope {
    window,      ///< always; text fields take what means something to them first
    canvas,      ///< while nothing is typed
    annotating,  ///< the same, in annotation mode
    cropping,    ///< the same, while cropping
    pointer,     ///< is no key, but what a modifier does to the pointer; listed only
};

/// One command of the editor: what shortcuts, tooltips, menus, tips and the list of shortcuts know
/// of it. The tools' keys are in annotationTools().
struct EditorCommand {
    const char* id;  ///< names it in views and stored settings
    ShortcutCategory category;
    CommandScope scope;
    const char* title;  ///< English
    /// As QKeySequence::listFromString() reads them; the first is shown. Of a pointer's command
    /// English words with the modifiers as symbols.
    const char* keys;
    void (*run)(EditorViewModel& editor, EditorActions& actions) = nullptr;
    bool (*isEnabled)(const EditorViewModel& editor, const EditorActions& actions) = nullptr;
    const char* tip = nullptr;  ///< English; shown once after it was done by a button
    bool isListed = true;       ///< among the shortcuts
};

/// In display order; of those that share a key, the first that is enabled has it.
std::span<const EditorCommand> editorCommands();
/// Null for an unknown name.
const EditorCommand* editorCommand(const QString& id);
bool isEnabled(const EditorCommand& command, const EditorViewModel& editor,
               const EditorActions& actions);
QList<QKeySequence> keysOf(const EditorCommand& command);
/// The tip of a command or a tool in English; null if it has no tip.
const char* tipOf(const QString& id);

}  // namespace kestrio
