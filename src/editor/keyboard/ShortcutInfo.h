#pragma once

#include "annotation/editing/AnnotationTool.h"
#include "core/EnumTable.h"

#include <vector>

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

/// One shortcut of the editor.
struct ShortcutInfo {
    QString id;           ///< names the action
    QString shortcut;     ///< in symbols, such as "⌘Z"; shownShortcut() is for users
    QString description;  ///< in the user's language
    ShortcutCategory category = ShortcutCategory::tools;

    /// In display order; the tools in that of the tools themselves.
    static std::vector<ShortcutInfo> all(ShortcutCategory category);
    /// The shortcut of an action, or none.
    static std::optional<ShortcutInfo> find(const QString& id);
};

/// A text with the keys' symbols replaced by the words on a PC's keyboard: "⌘⇧Z" becomes
/// "Ctrl+Shift+Z".
QString shownShortcut(QString text);

}  // namespace kestrio
