import QtQuick
import QtQuick.Layouts
import QtQuick.Dialogs
import Kestrio.Editor

Window {
    id: window
    required property EditorController controller
    property bool isPanelShown: true

    width: 1200
    height: 800
    minimumWidth: 900
    minimumHeight: 600
    title: controller.suggestedName + " – Kestrio"
    color: Theme.ground
    visible: true

    ColumnLayout {
        anchors.fill: parent
        spacing: 0
        // What no field or button with the focus has taken.
        Keys.onPressed: event => event.accepted = window.controller.handleKey(event.key,
            event.modifiers, event.text)

        TopBar {
            Layout.fillWidth: true
            controller: window.controller
            isPanelShown: window.isPanelShown
            onSaveRequested: saver.open()
            onEnhanceRequested: enhancement.isShown = true
            onPanelToggled: window.isPanelShown = !window.isPanelShown
            onShortcutsRequested: window.controller.isShortcutOverlayVisible = !window.controller.isShortcutOverlayVisible
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 0
            Item {
                id: stage
                Layout.fillWidth: true
                Layout.fillHeight: true
                clip: true

                CanvasItem {
                    id: canvas
                    objectName: "canvas"
                    anchors.fill: parent
                    controller: window.controller
                    fillColor: Theme.ground
                    focus: true
                    Accessible.role: Accessible.Canvas
                    Accessible.name: qsTr("Canvas")
                }
                InlineTextEditor { canvas: canvas }
                NumberEditor { canvas: canvas; controller: window.controller }
                CropOverlay {
                    anchors.fill: parent
                    visible: window.controller.isCropMode
                    controller: window.controller
                    imageRect: canvas.imageRect
                }
                EyedropperOverlay {
                    anchors.fill: parent
                    visible: window.controller.isPickingColor
                    controller: window.controller
                    canvas: canvas
                }
                AnnotationPalette {
                    id: palette
                    controller: window.controller
                    anchors.horizontalCenter: parent.horizontalCenter
                    y: window.controller.isAnnotationMode ? 12 : -height - 8
                    visible: y > -height
                    Behavior on y { NumberAnimation { duration: Theme.motion; easing.type: Easing.OutCubic } }
                }
                DropArea {
                    anchors.fill: parent
                    onDropped: drop => {
                        if (drop.hasUrls) window.controller.openFile(drop.urls[0])
                    }
                    Rectangle {
                        anchors.fill: parent
                        anchors.margins: 8
                        visible: parent.containsDrag
                        color: "#220a7cff"
                        border.color: Theme.accent
                        border.width: 2
                        radius: Theme.largeRadius
                    }
                }
                ExportProgress {
                    controller: window.controller
                    anchors.horizontalCenter: parent.horizontalCenter
                    anchors.bottom: parent.bottom
                    anchors.bottomMargin: 24
                }
                Toast { id: toast }
                EnhancementSheet {
                    id: enhancement
                    anchors.fill: parent
                    controller: window.controller
                }
                ShortcutOverlay {
                    anchors.fill: parent
                    controller: window.controller
                }
            }
            RightPanel {
                Layout.fillHeight: true
                Layout.preferredWidth: window.isPanelShown ? 288 : 0
                visible: Layout.preferredWidth > 0
                controller: window.controller
            }
        }
        ThemeStrip {
            Layout.fillWidth: true
            controller: window.controller
        }
    }

    Connections {
        target: window.controller
        function onToast(text) { toast.show(text, false) }
        function onFailed(text) { toast.show(text, true) }
        function onModeChanged() { canvas.forceActiveFocus() }
    }
    Shortcut { sequences: [StandardKey.Undo]; onActivated: window.controller.undo() }
    Shortcut { sequences: ["Ctrl+Shift+Z", StandardKey.Redo]; onActivated: window.controller.redo() }
    Shortcut { sequences: [StandardKey.Save]; onActivated: saver.open() }
    Shortcut { sequences: [StandardKey.Copy]; onActivated: window.controller.copy() }
    Shortcut { sequences: [StandardKey.ZoomIn, "Ctrl+="]; onActivated: window.controller.zoomBy(1.25) }
    Shortcut { sequences: [StandardKey.ZoomOut]; onActivated: window.controller.zoomBy(0.8) }
    Shortcut { sequence: "Ctrl+0"; onActivated: window.controller.zoomToFit() }
    Shortcut { sequences: [StandardKey.Close, StandardKey.Quit]; onActivated: window.close() }

    FileDialog {
        id: saver
        title: qsTr("Save picture")
        acceptLabel: qsTr("Save")
        fileMode: FileDialog.SaveFile
        selectedFile: window.controller.suggestedFile
        defaultSuffix: "png"
        currentFolder: window.controller.saveFolder
        nameFilters: [qsTr("PNG picture (*.png)"), qsTr("JPEG picture (*.jpeg *.jpg)"), qsTr("WebP picture (*.webp)")]
        onAccepted: window.controller.exportTo(selectedFile, "")
    }
}
