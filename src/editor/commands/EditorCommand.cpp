#include "editor/commands/EditorCommand.h"

namespace kestrio {

namespace {

using Editor = EditorViewModel;
using Actions = EditorActions;
using enum ShortcutCategory;
using enum CommandScope;

constexpr double zoomStep = 1.25;

void zoomBy(Editor& editor, double factor) {
    editor.setZoom(editor.canvasState().transform.scale * factor);
}

void zoomToFit(Editor& editor) {
    CanvasState canvas = editor.canvasState();
    canvas.transform.scale = 1;
    canvas.transform.offset = {0, 0};
    editor.set_canvasState(canvas);
}

bool hasSelection(const Editor& editor, const Actions&) {
    return editor.isAnnotationMode() && editor.annotationVM().selectedAnnotation().has_value() &&
           !editor.isShortcutOverlayVisible();
}

// A primary that a drag still changes is not moved under the drag.
void reorder(Editor& editor, void (AnnotationViewModel::*move)()) {
    AnnotationViewModel& model = editor.annotationVM();
    const AnyAnnotation* const record = model.annotation(model.selectedAnnotation()->id());
    if (!record || *record != *model.selectedAnnotation()) return;
    (model.*move)();
    editor.synchroniseAnnotations();
}

void deleteSelected(Editor& editor) {
    editor.annotationVM().deleteSelected();
    editor.synchroniseAnnotations();
}

void cancelGesture(Editor& editor) {
    editor.annotationVM().cancelGesture();
    editor.synchroniseAnnotations();
}

void toggleShortcuts(Editor& editor) {
    editor.set_isShortcutOverlayVisible(!editor.isShortcutOverlayVisible());
}

void toggleReading(Editor& editor) {
    if (editor.ocrVM().isScanning()) {
        editor.ocrVM().cancelScan();
    } else {
        editor.ocrVM().set_selectedRegion(std::nullopt);
        launch(editor.performOCR(), &editor);
    }
}

// The pointer is for nothing else meanwhile.
void chooseTextRegion(Editor& editor) {
    editor.leaveAnnotationMode();
    if (editor.isCropMode()) editor.cancelCrop();
    if (editor.colorPickerVM().isColorPickingMode()) editor.toggleColorPicker();
    editor.ocrVM().cancelScan();
    editor.ocrVM().set_isRegionSelectionMode(!editor.ocrVM().isRegionSelectionMode());
}

bool hasPicture(const Editor& editor, const Actions&) {
    return !editor.screenshot().isNull();
}

bool isFree(const Editor&, const Actions& actions) {
    return !actions.isBusy();
}

constexpr EditorCommand commands[] = {
    {.id = "undo",
     .category = editing,
     .scope = window,
     .title = Kestrio::marked("Undo"),
     .keys = "Ctrl+Z",
     .run = [](Editor& editor, Actions&) { editor.undo(); },
     .isEnabled = [](const Editor& editor, const Actions&) { return editor.canUndo(); },
     .tip = Kestrio::marked("Tip: Press ⌘Z to undo")},
    {.id = "redo",
     .category = editing,
     .scope = window,
     .title = Kestrio::marked("Redo"),
     .keys = "Ctrl+Shift+Z; Ctrl+Y",
     .run = [](Editor& editor, Actions&) { editor.redo(); },
     .isEnabled = [](const Editor& editor, const Actions&) { return editor.canRedo(); },
     .tip = Kestrio::marked("Tip: Press ⌘⇧Z to redo")},
    {.id = "delete",
     .category = editing,
     .scope = annotating,
     .title = Kestrio::marked("Delete selected"),
     .keys = "Del; Backspace",
     .run = [](Editor& editor, Actions&) { deleteSelected(editor); },
     .isEnabled = hasSelection,
     .tip = Kestrio::marked("Tip: Press Delete or Backspace to delete")},
    {.id = "copy",
     .category = editing,
     .scope = window,
     .title = Kestrio::marked("Copy to clipboard"),
     .keys = "Ctrl+C; Ctrl+Ins",
     .run = [](Editor&, Actions& actions) { actions.copy(); },
     .isEnabled = isFree},
    {.id = "paste",
     .category = editing,
     .scope = window,
     .title = Kestrio::marked("Paste a picture"),
     .keys = "Ctrl+V; Shift+Ins",
     .run = [](Editor&, Actions& actions) { actions.paste(); }},
    {.id = "save",
     .category = editing,
     .scope = window,
     .title = Kestrio::marked("Save as a file"),
     .keys = "Ctrl+S",
     .run = [](Editor&, Actions& actions) { actions.save(); },
     .isEnabled = isFree},
    {.id = "share",
     .category = editing,
     .scope = window,
     .title = Kestrio::marked("Share with another program"),
     .keys = "Ctrl+Shift+E",
     .run = [](Editor&, Actions& actions) { actions.share(); },
     .isEnabled = isFree},
    {.id = "pin",
     .category = editing,
     .scope = window,
     .title = Kestrio::marked("Pin to the desktop"),
     .keys = "Ctrl+P",
     .run = [](Editor&, Actions& actions) { actions.pin(); },
     .isEnabled = [](const Editor& editor,
                     const Actions&) { return editor.outputModel().canPin(); }},
    {.id = "selectAll",
     .category = selection,
     .scope = annotating,
     .title = Kestrio::marked("Select all annotations"),
     .keys = "Ctrl+A",
     .run = [](Editor& editor, Actions&) { editor.annotationVM().selectAll(); },
     .tip = Kestrio::marked("Tip: Press ⌘A to select all annotations")},
    {.id = "bringToFront",
     .category = selection,
     .scope = annotating,
     .title = Kestrio::marked("Bring to front"),
     .keys = "Ctrl+]",
     .run = [](Editor& editor,
               Actions&) { reorder(editor, &AnnotationViewModel::bringSelectedToFront); },
     .isEnabled = hasSelection,
     .tip = Kestrio::marked("Tip: Press ⌘] to bring to front")},
    {.id = "sendToBack",
     .category = selection,
     .scope = annotating,
     .title = Kestrio::marked("Send to back"),
     .keys = "Ctrl+[",
     .run = [](Editor& editor,
               Actions&) { reorder(editor, &AnnotationViewModel::sendSelectedToBack); },
     .isEnabled = hasSelection,
     .tip = Kestrio::marked("Tip: Press ⌘[ to send to back")},
    {.id = "cycleSelection",
     .category = selection,
     .scope = pointer,
     .title = Kestrio::marked("Cycle through overlapping"),
     .keys = Kestrio::marked("⌥Click")},
    {.id = "multiSelect",
     .category = selection,
     .scope = pointer,
     .title = Kestrio::marked("Add to selection"),
     .keys = Kestrio::marked("⇧Click")},
    {.id = "redact",
     .category = editing,
     .scope = window,
     .title = Kestrio::marked("Redact sensitive information"),
     .keys = "Ctrl+Shift+R",
     .run = [](Editor& editor, Actions&) { editor.autoRedaction().toggle(); }},
    {.id = "applyCrop",
     .category = editing,
     .scope = cropping,
     .title = Kestrio::marked("Apply the crop"),
     .keys = "Return; Enter",
     .run = [](Editor& editor, Actions&) { editor.applyCrop(); },
     .isListed = false},
    {.id = "cancelCrop",
     .category = editing,
     .scope = cropping,
     .title = Kestrio::marked("Cancel the crop"),
     .keys = "Esc",
     .run = [](Editor& editor, Actions&) { editor.cancelCrop(); },
     .isListed = false},
    {.id = "cancelGesture",
     .category = editing,
     .scope = annotating,
     .title = Kestrio::marked("Cancel what is being drawn or moved"),
     .keys = "Esc",
     .run = [](Editor& editor, Actions&) { cancelGesture(editor); },
     .isEnabled = [](const Editor& editor,
                     const Actions&) { return editor.annotationVM().gesture() != nullptr; },
     .isListed = false},
    {.id = "closeShortcuts",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Hide shortcuts"),
     .keys = "Esc",
     .run = [](Editor& editor, Actions&) { editor.set_isShortcutOverlayVisible(false); },
     .isEnabled = [](const Editor& editor,
                     const Actions&) { return editor.isShortcutOverlayVisible(); },
     .isListed = false},
    {.id = "stopRedacting",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Stop looking for sensitive information"),
     .keys = "Esc",
     .run = [](Editor& editor, Actions&) { editor.autoRedaction().cancel(); },
     .isEnabled = [](const Editor& editor,
                     const Actions&) { return editor.autoRedaction().isScanning(); },
     .isListed = false},
    {.id = "stopPicking",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Pick no colour"),
     .keys = "Esc",
     .run = [](Editor&, Actions& actions) { actions.pickColor(); },
     .isEnabled = [](const Editor& editor,
                     const Actions&) { return editor.colorPickerVM().isColorPickingMode(); },
     .isListed = false},
    {.id = "leaveAnnotations",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Leave annotation mode"),
     .keys = "Esc",
     .run = [](Editor& editor, Actions&) { editor.leaveAnnotationMode(); },
     .isEnabled = [](const Editor& editor, const Actions&) { return editor.isAnnotationMode(); },
     .isListed = false},
    {.id = "leaveTextRegion",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Choose no part of the text"),
     .keys = "Esc",
     .run = [](Editor& editor, Actions&) { editor.ocrVM().set_isRegionSelectionMode(false); },
     .isEnabled = [](const Editor& editor,
                     const Actions&) { return editor.ocrVM().isRegionSelectionMode(); },
     .isListed = false},
    {.id = "cancelReading",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Stop reading the text"),
     .keys = "Esc",
     .run = [](Editor& editor, Actions&) { editor.ocrVM().cancelScan(); },
     .isEnabled = [](const Editor& editor, const Actions&) { return editor.ocrVM().isScanning(); },
     .isListed = false},
    {.id = "hideText",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Hide the text"),
     .keys = "Esc",
     .run = [](Editor& editor, Actions&) { editor.ocrVM().set_showResultsPanel(false); },
     .isEnabled = [](const Editor& editor,
                     const Actions&) { return editor.ocrVM().showResultsPanel(); },
     .isListed = false},
    {.id = "readText",
     .category = view,
     .scope = window,
     .title = Kestrio::marked("Read the text of the picture"),
     .keys = "Ctrl+T",
     .run = [](Editor& editor, Actions&) { toggleReading(editor); },
     .isEnabled = hasPicture},
    {.id = "readRegion",
     .category = view,
     .scope = window,
     .title = Kestrio::marked("Read the text of a part"),
     .keys = "Ctrl+Shift+T",
     .run = [](Editor& editor, Actions&) { chooseTextRegion(editor); },
     .isEnabled = hasPicture},
    {.id = "eyedropper",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Color picker"),
     .keys = "I",
     .run = [](Editor&, Actions& actions) { actions.pickColor(); },
     .tip = Kestrio::marked("Tip: Press I to activate color picker")},
    {.id = "showShortcuts",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Show shortcuts"),
     .keys = "?",
     .run = [](Editor& editor, Actions&) { toggleShortcuts(editor); }},
    {.id = "constrainShape",
     .category = view,
     .scope = pointer,
     .title = Kestrio::marked("Constrain to square/45°"),
     .keys = Kestrio::marked("⇧Drag")},
    {.id = "aspectRatio",
     .category = view,
     .scope = pointer,
     .title = Kestrio::marked("Maintain aspect ratio"),
     .keys = Kestrio::marked("⇧Resize")},
    {.id = "annotate",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Draw on the picture"),
     .keys = "D",
     .run = [](Editor& editor, Actions&) { editor.toggleAnnotationMode(); }},
    {.id = "crop",
     .category = view,
     .scope = canvas,
     .title = Kestrio::marked("Crop"),
     .keys = "C",
     .run = [](Editor& editor, Actions&) { editor.enterCropMode(); }},
    {.id = "zoomIn",
     .category = view,
     .scope = window,
     .title = Kestrio::marked("Zoom in"),
     .keys = "Ctrl++; Ctrl+=",
     .run = [](Editor& editor, Actions&) { zoomBy(editor, zoomStep); }},
    {.id = "zoomOut",
     .category = view,
     .scope = window,
     .title = Kestrio::marked("Zoom out"),
     .keys = "Ctrl+-",
     .run = [](Editor& editor, Actions&) { zoomBy(editor, 1 / zoomStep); }},
    {.id = "zoomToFit",
     .category = view,
     .scope = window,
     .title = Kestrio::marked("Fit the picture into the window"),
     .keys = "Ctrl+0",
     .run = [](Editor& editor, Actions&) { zoomToFit(editor); }},
    {.id = "close",
     .category = view,
     .scope = window,
     .title = Kestrio::marked("Close the window"),
     .keys = "Ctrl+W",
     .run = [](Editor&, Actions& actions) { actions.closeWindow(); }},
};

}  // namespace

std::span<const EditorCommand> editorCommands() {
    return commands;
}

const EditorCommand* editorCommand(const QString& id) {
    const auto* const found = std::ranges::find_if(
        commands, [&id](const EditorCommand& each) { return id == QLatin1StringView(each.id); });
    return found == std::end(commands) ? nullptr : found;
}

bool isEnabled(const EditorCommand& command, const EditorViewModel& editor,
               const EditorActions& actions) {
    return !command.isEnabled || command.isEnabled(editor, actions);
}

QList<QKeySequence> keysOf(const EditorCommand& command) {
    return QKeySequence::listFromString(QString::fromUtf8(command.keys));
}

const char* tipOf(const QString& id) {
    if (const EditorCommand* const command = editorCommand(id)) return command->tip;
    for (const AnnotationToolInfo& tool : annotationTools())
        if (id == QLatin1StringView(tool.id)) return tool.tip;
    return nullptr;
}

}  // namespace kestrio
