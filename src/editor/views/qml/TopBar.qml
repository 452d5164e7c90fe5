import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

Rectangle {
    id: bar
    required property EditorController controller
    readonly property OutputPanel output: controller.output
    readonly property CommandPanel commands: controller.commands
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
    Component {
        id: redactionKinds
        RedactionPopover {
            controller: bar.controller
            y: kindsButton.height
            onClosed: destroy()
        }
    }
    signal enhanceRequested()
    signal resetRequested()

    implicitHeight: 52
    color: Theme.surface

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.medium
        anchors.rightMargin: Theme.medium
        spacing: Theme.tiny

        CommandButton {
            commands: bar.commands
            command: "undo"
            symbol: "arrow.uturn.backward"
        }
        CommandButton {
            commands: bar.commands
            command: "redo"
            symbol: "arrow.uturn.forward"
        }
        IconButton {
            symbol: "backward.end"
            tip: qsTranslate("Kestrio", "Start over…")
            onClicked: bar.resetRequested()
        }
        Separator { Layout.leftMargin: 4; Layout.rightMargin: 4 }
        ZoomField { controller: bar.controller }
        Separator { Layout.leftMargin: 4; Layout.rightMargin: 4 }
        CommandButton {
            commands: bar.commands
            command: bar.controller.isCropMode ? "cancelCrop" : "crop"
            symbol: "crop"
            checked: bar.controller.isCropMode
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
        CommandButton {
            commands: bar.commands
            command: "eyedropper"
            symbol: "eyedropper"
            tip: qsTranslate("Kestrio", "Pick a colour; with Alt for the backdrop")
            checked: bar.controller.colors.isPicking
        }
        CommandButton {
            commands: bar.commands
            command: "annotate"
            symbol: "pencil"
            text: bar.isNarrow ? "" : qsTranslate("Kestrio", "Annotate")
            checked: bar.controller.isAnnotationMode
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
        CommandButton {
            objectName: "editor.redact"
            commands: bar.commands
            command: "redact"
            symbol: bar.controller.redaction.isScanning ? "xmark" : "redact"
            text: bar.controller.redaction.isScanning && bar.width > 1280 ? qsTranslate("Kestrio", "Scanning…") : ""
            tip: bar.controller.redaction.isScanning ? qsTranslate("Kestrio", "Stop looking for sensitive information")
                : commands.title(command)
            checked: bar.controller.redaction.isScanning
        }
        IconButton {
            id: kindsButton
            objectName: "editor.redact.kinds"
            symbol: "chevron.down"
            tip: qsTranslate("Kestrio", "How sensitive information is covered")
            implicitWidth: 22
            onClicked: redactionKinds.createObject(kindsButton).open()
        }
        CommandButton {
            objectName: "editor.readText"
            commands: bar.commands
            command: "readText"
            symbol: bar.controller.text.isScanning ? "xmark" : "text.viewfinder"
            tip: bar.controller.text.isScanning ? qsTranslate("Kestrio", "Scanning text... Click to stop.") : bar.commands.title(command)
            checked: bar.controller.text.isShown
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
            // It is the first to go where words are long.
            opacity: width < implicitWidth ? 0 : 1
            Layout.fillWidth: true
            Layout.minimumWidth: 0
            Layout.maximumWidth: implicitWidth
            Layout.rightMargin: Theme.small
        }
        IconButton {
            symbol: "keyboard"
            tip: qsTranslate("Kestrio", "Keyboard shortcuts")
            key: bar.commands.key("showShortcuts")
            onClicked: bar.controller.isShortcutOverlayVisible = !bar.controller.isShortcutOverlayVisible
        }
        IconButton {
            symbol: "sidebar.right"
            readonly property bool hides: bar.controller.isPanelShown || bar.controller.text.isShown
            tip: hides ? qsTranslate("Kestrio", "Hide the panel") : qsTranslate("Kestrio", "Show the panel")
            onClicked: {
                bar.controller.isPanelShown = !hides
                bar.controller.text.isShown = false
            }
        }
        Separator { Layout.leftMargin: 4; Layout.rightMargin: 4 }
        CommandButton {
            objectName: "pin"
            commands: bar.commands
            command: "pin"
            visible: bar.output.canPin
            symbol: "pin"
        }
        DragOut { output: bar.output }
        CommandButton {
            id: shareButton
            objectName: "editor.share"
            commands: bar.commands
            command: "share"
            symbol: "square.and.arrow.up"
        }
        CommandButton {
            commands: bar.commands
            command: "copy"
            symbol: bar.output.copyState === "success" ? "checkmark"
                : bar.output.copyState === "failure" ? "xmark" : "doc.on.doc"
            text: bar.isNarrow ? "" : bar.output.copyState === "copying" ? qsTranslate("Kestrio", "Copying…") : qsTranslate("Kestrio", "Copy")
        }
        CommandButton {
            commands: bar.commands
            command: "save"
            symbol: "square.and.arrow.down"
            text: qsTranslate("Kestrio", "Save")
            isPrimary: true
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
