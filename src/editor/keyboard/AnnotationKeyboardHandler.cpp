#include "editor/keyboard/AnnotationKeyboardHandler.h"

namespace kestrio {

namespace {

constexpr Qt::KeyboardModifiers command = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers shift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers controlOrOption = Qt::MetaModifier | Qt::AltModifier;

bool isQuestionMark(const KeyPress& press) {
    return press.text == u"?" || (press.modifiers & shift && press.text == u"/");
}

// Combinations are known by their key and not by their text: with the command key held, keys type
// control characters. Plain keys go with and without Shift.
bool isKey(const KeyPress& press, QKeyCombination wanted) {
    const Qt::KeyboardModifiers held = press.modifiers & (command | shift | controlOrOption);
    if (wanted.keyboardModifiers() != Qt::NoModifier) {
        return held == wanted.keyboardModifiers() && press.key == wanted.key();
    }
    if (held & (command | controlOrOption)) return false;
    return wanted.key() == Qt::Key_Question ? isQuestionMark(press) : press.key == wanted.key();
}

bool isKeyOf(const EditorCommand& each, const KeyPress& press) {
    return std::ranges::any_of(
        keysOf(each), [&press](const QKeySequence& keys) { return isKey(press, keys[0]); });
}

}  // namespace

bool AnnotationKeyboardHandler::handle(const KeyPress& press) {
    if (!isActive_ || !editor_ || press.isTextFocused) return false;
    if (editor_->isCropMode() && runCommand(CommandScope::cropping, press)) return true;
    if (editor_->isAnnotationMode() &&
        (runCommand(CommandScope::annotating, press) || chooseTool(press))) {
        return true;
    }
    return runCommand(CommandScope::canvas, press);
}

bool AnnotationKeyboardHandler::runCommand(CommandScope scope, const KeyPress& press) {
    for (const EditorCommand& each : editorCommands()) {
        if (each.scope != scope || !isKeyOf(each, press)) continue;
        if (!isEnabled(each, *editor_, actions_)) continue;
        each.run(*editor_, actions_);
        markUsed(QString::fromLatin1(each.id));
        return true;
    }
    return false;
}

bool AnnotationKeyboardHandler::chooseTool(const KeyPress& press) {
    if (press.modifiers & (command | controlOrOption) || press.text.isEmpty()) return false;
    const auto tool = annotationToolOfKey(press.text.front());
    if (!tool) return false;
    AnnotationViewModel& model = editor_->annotationVM();
    if (model.currentTool() != *tool) {
        model.set_isMultiSelectMode(false);  // else the other selected records stayed
        model.selectAnnotation(std::nullopt);
        model.set_currentTool(*tool);
    }
    markUsed(toolId(*tool));
    return true;
}

void AnnotationKeyboardHandler::markUsed(const QString& action) {
    if (hints_) hints_->recordShortcutUsed(action);
}

}  // namespace kestrio
