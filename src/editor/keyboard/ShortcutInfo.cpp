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
    {editing, "undo", "⌘Z", "Undo"},
    {editing, "redo", "⌘⇧Z", "Redo"},
    {editing, "delete", "⌫", "Delete selected"},
    {editing, "copy", "⌘C", "Copy to clipboard"},
    {selection, "selectAll", "⌘A", "Select all annotations"},
    {selection, "bringToFront", "⌘]", "Bring to front"},
    {selection, "sendToBack", "⌘[", "Send to back"},
    {selection, "cycleSelection", "⌥Click", "Cycle through overlapping"},
    {selection, "multiSelect", "⇧Click", "Add to selection"},
    {view, "eyedropper", "I", "Color picker"},
    {view, "showShortcuts", "?", "Show shortcuts"},
    {view, "constrainShape", "⇧Drag", "Constrain to square/45°"},
    {view, "aspectRatio", "⇧Resize", "Maintain aspect ratio"},
};

ShortcutInfo ofTool(const AnnotationToolInfo& info) {
    return {shortcutId(info.tool), QString(QChar::fromLatin1(info.key).toUpper()),
            localised(info.description), tools};
}

ShortcutInfo ofRow(const Row& row) {
    return {QString::fromLatin1(row.id), QString::fromUtf8(row.shortcut),
            localised(row.description), row.category};
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

QString shortcutId(AnnotationTool tool) {
    return QString::fromLatin1(annotationToolInfo(tool).name).toLower();
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
