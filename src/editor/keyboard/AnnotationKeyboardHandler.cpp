#include "editor/keyboard/AnnotationKeyboardHandler.h"

#include "editor/keyboard/ShortcutInfo.h"

namespace kestrio {

namespace {

constexpr Qt::KeyboardModifiers command = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers shift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers controlOrOption = Qt::MetaModifier | Qt::AltModifier;

bool isDelete(int key) {
    return key == Qt::Key_Backspace || key == Qt::Key_Delete;
}

bool isQuestionMark(const KeyPress& press) {
    return press.text == u"?" || (press.modifiers & shift && press.text == u"/");
}

}  // namespace

bool AnnotationKeyboardHandler::handle(const KeyPress& press) {
    if (!isActive_ || !editor_ || press.isTextFocused) return false;
    if (editor_->isCropMode() && handleInCropMode(press)) return true;
    if (!editor_->isAnnotationMode()) return false;
    if (press.modifiers & command) {
        return !(press.modifiers & (shift | controlOrOption)) && handleCommand(press);
    }
    return !(press.modifiers & controlOrOption) && handlePlain(press);
}

bool AnnotationKeyboardHandler::handleInCropMode(const KeyPress& press) {
    if (press.modifiers & (command | controlOrOption)) return false;
    switch (press.key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            editor_->applyCrop();
            return true;
        case Qt::Key_Escape:
            editor_->cancelCrop();
            return true;
        default:
            return false;
    }
}

// By key and not by text: with the command key held, keys type control characters.
bool AnnotationKeyboardHandler::handleCommand(const KeyPress& press) {
    switch (press.key) {
        case Qt::Key_A:
            editor_->annotationVM().selectAll();
            markUsed(QStringLiteral("selectAll"));
            return true;
        case Qt::Key_BracketRight:
            return moveSelected(&AnnotationViewModel::bringSelectedToFront, "bringToFront");
        case Qt::Key_BracketLeft:
            return moveSelected(&AnnotationViewModel::sendSelectedToBack, "sendToBack");
        default:
            return false;
    }
}

bool AnnotationKeyboardHandler::moveSelected(void (AnnotationViewModel::*move)(),
                                             const char* action) {
    AnnotationViewModel& model = editor_->annotationVM();
    const auto& primary = model.selectedAnnotation();
    if (!primary) return false;
    // A primary that a drag still changes is not moved under the drag.
    const AnyAnnotation* record = model.annotation(primary->id());
    if (!record || !(*record == *primary)) return true;
    (model.*move)();
    editor_->synchroniseAnnotations();
    markUsed(QString::fromLatin1(action));
    return true;
}

bool AnnotationKeyboardHandler::handlePlain(const KeyPress& press) {
    const bool isOverlayShown = editor_->isShortcutOverlayVisible();
    if (isDelete(press.key)) {
        AnnotationViewModel& model = editor_->annotationVM();
        if (!model.selectedAnnotation() || isOverlayShown) return false;
        model.deleteSelected();
        editor_->synchroniseAnnotations();
        markUsed(QStringLiteral("delete"));
        return true;
    }
    if (isQuestionMark(press)) {
        editor_->set_isShortcutOverlayVisible(!isOverlayShown);
        markUsed(QStringLiteral("showShortcuts"));
        return true;
    }
    if (press.key == Qt::Key_Escape && editor_->annotationVM().gesture()) {
        editor_->annotationVM().cancelGesture();
        editor_->synchroniseAnnotations();
        return true;
    }
    if (press.key == Qt::Key_Escape) {
        editor_->set_isShortcutOverlayVisible(false);
        return isOverlayShown;
    }
    if (press.text.isEmpty()) return false;
    const auto tool = annotationToolOfKey(press.text.front());
    if (tool) chooseTool(*tool);
    return tool.has_value();
}

void AnnotationKeyboardHandler::chooseTool(AnnotationTool tool) {
    AnnotationViewModel& model = editor_->annotationVM();
    if (model.currentTool() != tool) {
        model.set_isMultiSelectMode(false);  // else the other selected records stayed
        model.selectAnnotation(std::nullopt);
        model.set_currentTool(tool);
    }
    markUsed(toolId(tool));
}

void AnnotationKeyboardHandler::markUsed(const QString& action) {
    if (hints_) hints_->recordShortcutUsed(action);
}

}  // namespace kestrio
