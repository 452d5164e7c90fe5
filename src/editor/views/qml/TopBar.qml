import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

Rectangle {
    id: bar
    required property EditorController controller
    readonly property OutputPanel output: controller.output
    // Words give way to icons before anything is cut off.
    readonly property bool isNarrow: width < 1000
    function openShareMenu() {
        if (shareButton.enabled) shareMenu.createObject(shareButton).popup(0, shareButton.height)
    }
    Component {
        id: shareMenu
        ShareMenu {
            controller: bar.controller
            onClosed: destroy()
        }
    }
    signal saveRequested()
    signal enhanceRequested()
    signal resetRequested()

    implicitHeight: 52
    color: Theme.surface

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.medium
        anchors.rightMargin: Theme.medium
        spacing: Theme.tiny

        IconButton {
            symbol: "arrow.uturn.backward"
            tip: qsTranslate("Kestrio", "Undo")
            key: "Ctrl+Z"
            enabled: bar.controller.canUndo
            onClicked: bar.controller.undoByButton()
        }
        IconButton {
            symbol: "arrow.uturn.forward"
            tip: qsTranslate("Kestrio", "Redo")
            key: "Ctrl+Shift+Z"
            enabled: bar.controller.canRedo
            onClicked: bar.controller.redoByButton()
        }
        IconButton {
            symbol: "backward.end"
            tip: qsTranslate("Kestrio", "Start over…")
            onClicked: bar.resetRequested()
        }
        Separator { Layout.leftMargin: 4; Layout.rightMargin: 4 }
        ZoomField { controller: bar.controller }
        Separator { Layout.leftMargin: 4; Layout.rightMargin: 4 }
        IconButton {
            symbol: "crop"
            tip: qsTranslate("Kestrio", "Crop")
            key: "C"
            checked: bar.controller.isCropMode
            onClicked: bar.controller.isCropMode ? bar.controller.crop.cancel() : bar.controller.enterCrop()
        }
        IconButton {
            symbol: "rotate.left"
            tip: qsTranslate("Kestrio", "Turn left")
            onClicked: bar.controller.rotate(false)
        }
        IconButton {
            symbol: "rotate.right"
            tip: qsTranslate("Kestrio", "Turn right")
            onClicked: bar.controller.rotate(true)
        }
        IconButton {
            symbol: "eyedropper"
            tip: qsTranslate("Kestrio", "Pick a colour; with Alt for the backdrop")
            key: "I"
            checked: bar.controller.colors.isPicking
            onClicked: bar.controller.pickColorByButton(false)
        }
        IconButton {
            symbol: "pencil"
            text: bar.isNarrow ? "" : qsTranslate("Kestrio", "Annotate")
            tip: qsTranslate("Kestrio", "Draw on the picture")
            key: "D"
            checked: bar.controller.isAnnotationMode
            onClicked: bar.controller.toggleAnnotations()
        }
        IconButton {
            symbol: "wand.and.stars"
            tip: qsTranslate("Kestrio", "Auto beautify")
            onClicked: bar.controller.autoBeautify()
        }
        IconButton {
            symbol: "sparkles"
            tip: qsTranslate("Kestrio", "Enhance the picture")
            onClicked: bar.enhanceRequested()
        }
        Item { Layout.fillWidth: true }
        IconButton {
            objectName: "marksHidden"
            visible: bar.controller.annotation.tool.areMarksHidden
            symbol: "eye.slash"
            symbolColor: Theme.danger
            text: bar.isNarrow ? "" : qsTranslate("Kestrio", "Marks hidden")
            tip: qsTranslate("Kestrio", "Annotations are hidden; click to show them")
            onClicked: bar.controller.annotation.toggleVisibility()
        }
        Text {
            text: bar.controller.pictureSize
            font.pixelSize: Theme.captionSize
            color: Theme.secondaryText
            visible: bar.width > 1040
            Layout.rightMargin: Theme.small
        }
        IconButton {
            symbol: "keyboard"
            tip: qsTranslate("Kestrio", "Keyboard shortcuts")
            key: "?"
            onClicked: bar.controller.isShortcutOverlayVisible = !bar.controller.isShortcutOverlayVisible
        }
        IconButton {
            symbol: "sidebar.right"
            tip: bar.controller.isPanelShown ? qsTranslate("Kestrio", "Hide the panel") : qsTranslate("Kestrio", "Show the panel")
            onClicked: bar.controller.isPanelShown = !bar.controller.isPanelShown
        }
        Separator { Layout.leftMargin: 4; Layout.rightMargin: 4 }
        IconButton {
            objectName: "pin"
            visible: bar.output.canPin
            symbol: "pin"
            tip: qsTranslate("Kestrio", "Pin to the desktop")
            key: "Ctrl+P"
            onClicked: bar.output.pin()
        }
        DragOut { output: bar.output }
        IconButton {
            id: shareButton
            objectName: "editor.share"
            symbol: "square.and.arrow.up"
            tip: qsTranslate("Kestrio", "Share with another program")
            key: "Ctrl+Shift+E"
            enabled: !bar.output.isBusy && !bar.controller.share.isBusy
            onClicked: bar.openShareMenu()
        }
        IconButton {
            symbol: bar.output.copyState === "success" ? "checkmark"
                : bar.output.copyState === "failure" ? "xmark" : "doc.on.doc"
            text: bar.isNarrow ? "" : bar.output.copyState === "copying" ? qsTranslate("Kestrio", "Copying…") : qsTranslate("Kestrio", "Copy")
            tip: qsTranslate("Kestrio", "Copy to clipboard")
            key: "Ctrl+C"
            enabled: !bar.output.isBusy
            onClicked: bar.output.copy()
        }
        IconButton {
            symbol: "square.and.arrow.down"
            text: qsTranslate("Kestrio", "Save")
            tip: qsTranslate("Kestrio", "Save as a file")
            key: "Ctrl+S"
            isPrimary: true
            enabled: !bar.output.isBusy
            onClicked: bar.saveRequested()
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
