#include "editor/keyboard/ShortcutInfo.h"

#include <QKeySequence>

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
    {selection, "cycleSelection", Kestrio::marked("⌥Click"),
     Kestrio::marked("Cycle through overlapping")},
    {selection, "multiSelect", Kestrio::marked("⇧Click"), Kestrio::marked("Add to selection")},
    {view, "eyedropper", "I", Kestrio::marked("Color picker")},
    {view, "showShortcuts", "?", Kestrio::marked("Show shortcuts")},
    {view, "constrainShape", Kestrio::marked("⇧Drag"), Kestrio::marked("Constrain to square/45°")},
    {view, "aspectRatio", Kestrio::marked("⇧Resize"), Kestrio::marked("Maintain aspect ratio")},
};

// With the sign that joins it to its key, as in "Ctrl+".
QString nameOf(Qt::KeyboardModifier modifier) {
    const QKeySequence withLetter(QKeyCombination(modifier, Qt::Key_A));
    return withLetter.toString(QKeySequence::NativeText).chopped(1);
}

ShortcutInfo ofTool(const AnnotationToolInfo& info) {
    return {toolId(info.tool), QString(QChar::fromLatin1(info.key).toUpper()),
            Kestrio::tr(info.description), tools};
}

ShortcutInfo ofRow(const Row& row) {
    return {QString::fromLatin1(row.id), Kestrio::tr(row.shortcut), Kestrio::tr(row.description),
            row.category};
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
    constexpr std::pair<char16_t, Qt::KeyboardModifier> modifiers[] = {
        {u'⌃', Qt::MetaModifier},
        {u'⌥', Qt::AltModifier},
        {u'⌘', Qt::ControlModifier},
        {u'⇧', Qt::ShiftModifier},
    };
    for (const auto& [symbol, modifier] : modifiers)
        text.replace(QChar(symbol), nameOf(modifier));
    return text.replace(u'⌫', Kestrio::tr("Delete", "a key"));
}

}  // namespace kestrio
