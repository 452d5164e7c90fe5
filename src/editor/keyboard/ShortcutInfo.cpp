#include "editor/keyboard/ShortcutInfo.h"

#include <QKeySequence>

namespace kestrio {

namespace {

// With the sign that joins it to its key, as in "Ctrl+".
QString nameOf(Qt::KeyboardModifier modifier) {
    const QKeySequence withLetter(QKeyCombination(modifier, Qt::Key_A));
    return withLetter.toString(QKeySequence::NativeText).chopped(1);
}

ShortcutInfo ofTool(const AnnotationToolInfo& info) {
    return {toolId(info.tool), QString(QChar::fromLatin1(info.key).toUpper()),
            Kestrio::tr(info.description), ShortcutCategory::tools};
}

QString shownKeys(const EditorCommand& command) {
    if (command.scope == CommandScope::pointer) return shownShortcut(Kestrio::tr(command.keys));
    return keysOf(command).front().toString(QKeySequence::NativeText);
}

}  // namespace

std::vector<ShortcutInfo> ShortcutInfo::all(ShortcutCategory category) {
    std::vector<ShortcutInfo> list;
    if (category == ShortcutCategory::tools) {
        for (const AnnotationToolInfo& info : annotationTools())
            list.push_back(ofTool(info));
    }
    for (const EditorCommand& command : editorCommands()) {
        if (command.category != category || !command.isListed) continue;
        list.push_back({QString::fromLatin1(command.id), shownKeys(command),
                        Kestrio::tr(command.title), category});
    }
    return list;
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
