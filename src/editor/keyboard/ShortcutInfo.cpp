#include "editor/keyboard/ShortcutInfo.h"

namespace kestrio {

namespace {

struct Row {
    ShortcutCategory category;
    const char* id;
    const char* shortcut;
    const char* description;
};

using enum ShortcutCategory;

constexpr Row rows[] = {
    {editing, "undo", "⌘Z", Kestrio::marked("Undo")},
    {editing, "redo", "⌘⇧Z", Kestrio::marked("Redo")},
    {editing, "delete", "⌫", Kestrio::marked("Delete selected")},
    {editing, "copy", "⌘C", Kestrio::marked("Copy to clipboard")},
    {selection, "selectAll", "⌘A", Kestrio::marked("Select all annotations")},
    {selection, "bringToFront", "⌘]", Kestrio::marked("Bring to front")},
    {selection, "sendToBack", "⌘[", Kestrio::marked("Send to back")},
    {selection, "cycleSelection", "⌥Click", Kestrio::marked("Cycle through overlapping")},
    {selection, "multiSelect", "⇧Click", Kestrio::marked("Add to selection")},
    {view, "eyedropper", "I", Kestrio::marked("Color picker")},
    {view, "showShortcuts", "?", Kestrio::marked("Show shortcuts")},
    {view, "constrainShape", "⇧Drag", Kestrio::marked("Constrain to square/45°")},
    {view, "aspectRatio", "⇧Resize", Kestrio::marked("Maintain aspect ratio")},
};

ShortcutInfo ofTool(const AnnotationToolInfo& info) {
    return {toolId(info.tool), QString(QChar::fromLatin1(info.key).toUpper()),
            Kestrio::tr(info.description), tools};
}

ShortcutInfo ofRow(const Row& row) {
    return {QString::fromLatin1(row.id), QString::fromUtf8(row.shortcut),
            Kestrio::tr(row.description), row.category};
}

}  // namespace

std::vector<ShortcutInfo> ShortcutInfo::all(ShortcutCategory category) {
    std::vector<ShortcutInfo> list;
    if (category == tools) {
        for (const AnnotationToolInfo& info : annotationTools())
            list.push_back(ofTool(info));
    }
    for (const Row& row : rows) {
        if (row.category == category) list.push_back(ofRow(row));
    }
    return list;
}

std::optional<ShortcutInfo> ShortcutInfo::find(const QString& id) {
    for (const auto& category : shortcutCategories) {
        for (ShortcutInfo& info : all(category.value))
            if (info.id == id) return std::move(info);
    }
    return std::nullopt;
}

QString shownShortcut(QString text) {
    constexpr std::pair<const char16_t*, const char16_t*> words[] = {
        {u"⌃", u"Meta+"}, {u"⌥", u"Alt+"}, {u"⌘", u"Ctrl+"}, {u"⇧", u"Shift+"}, {u"⌫", u"Delete"},
    };
    for (const auto& [symbol, word] : words)
        text.replace(QStringView(symbol).toString(), QStringView(word).toString());
    return text;
}

}  // namespace kestrio
