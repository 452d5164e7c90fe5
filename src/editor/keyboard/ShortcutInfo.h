#pragma once

#include "editor/commands/EditorCommand.h"

#include <vector>

namespace kestrio {

/// One shortcut of the editor.
struct ShortcutInfo {
    QString id;           ///< names the command or tool
    QString shortcut;     ///< as the user's keyboard names it, such as "Ctrl+Z"
    QString description;  ///< in the user's language
    ShortcutCategory category = ShortcutCategory::tools;

    /// In display order; the tools in that of the tools themselves.
    static std::vector<ShortcutInfo> all(ShortcutCategory category);
};

/// A text with the keys' symbols replaced by the words on a PC's keyboard: "⌘⇧Z" becomes
/// "Ctrl+Shift+Z".
QString shownShortcut(QString text);

}  // namespace kestrio
