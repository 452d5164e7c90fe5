import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// A format, then a file, then what became of it.
Sheet {
    id: sheet
    objectName: "editor.exportOptions"
    closeName: "editor.exportOptions.close"
    required property EditorController controller
    readonly property OutputPanel output: controller.output
    readonly property string phase: output.exportState
    title: qsTranslate("Kestrio", "Export Options")
    sheetWidth: 400
    isBusy: phase === "exporting"
    onClosed: output.restart()

    function open() {
        output.restart()
        isShown = true
    }
    function goOn() {
        if (phase === "success") close()
        else if (phase !== "exporting") output.exportPicture()
    }
    Shortcut {
        enabled: sheet.isShown
        sequences: ["Return", "Enter"]
        onActivated: sheet.goOn()
    }

    ColumnLayout {
        Layout.fillWidth: true
        visible: sheet.phase === "idle"
        spacing: Theme.medium
        Segments {
            Layout.fillWidth: true
            rows: sheet.output.formats
            current: sheet.output.format
            onChosen: id => sheet.output.format = id
        }
        RowLayout {
            Layout.fillWidth: true
            Caption {
                Layout.fillWidth: true
                text: qsTranslate("Kestrio", "Size")
            }
            Text {
                text: sheet.output.outputSize
                font.pixelSize: Theme.bodySize
                color: Theme.text
            }
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.topMargin: Theme.tiny
            spacing: Theme.small
            Item { Layout.fillWidth: true }
            IconButton {
                text: qsTranslate("Kestrio", "Cancel")
                key: "Esc"
                onClicked: sheet.close()
            }
            IconButton {
                objectName: "editor.exportOptions.export"
                text: qsTranslate("Kestrio", "Export")
                isPrimary: true
                onClicked: sheet.output.exportPicture()
            }
        }
    }
    ColumnLayout {
        Layout.fillWidth: true
        visible: sheet.phase === "exporting"
        spacing: Theme.medium
        Text {
            text: qsTranslate("Kestrio", "Exporting image...")
            font.pixelSize: Theme.bodySize
            color: Theme.text
        }
        Rectangle {
            Layout.fillWidth: true
            implicitHeight: 6
            radius: 3
            color: Theme.hairline
            Rectangle {
                width: parent.width * sheet.output.progress
                height: 6
                radius: 3
                color: Theme.accent
                Behavior on width { NumberAnimation { duration: Theme.motion } }
            }
        }
        RowLayout {
            Layout.fillWidth: true
            Caption {
                Layout.fillWidth: true
                text: qsTranslate("Kestrio", "Please wait")
            }
            IconButton {
                text: qsTranslate("Kestrio", "Cancel")
                onClicked: sheet.output.cancelExport()
            }
        }
    }
    ColumnLayout {
        Layout.fillWidth: true
        visible: sheet.phase === "success"
        spacing: Theme.medium
        RowLayout {
            spacing: Theme.small
            Symbol {
                name: "checkmark"
                color: Theme.success
            }
            Text {
                text: qsTranslate("Kestrio", "Export Successful!")
                font.pixelSize: Theme.bodySize
                font.weight: Font.Medium
                color: Theme.text
            }
        }
        Text {
            Layout.fillWidth: true
            text: sheet.output.savedPath
            font.pixelSize: Theme.captionSize
            color: Theme.secondaryText
            elide: Text.ElideMiddle
        }
        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.small
            Item { Layout.fillWidth: true }
            IconButton {
                text: sheet.output.revealText
                onClicked: sheet.output.reveal()
            }
            IconButton {
                text: qsTranslate("Kestrio", "Done")
                isPrimary: true
                onClicked: sheet.close()
            }
        }
    }
    ColumnLayout {
        Layout.fillWidth: true
        visible: sheet.phase === "failure"
        spacing: Theme.medium
        Text {
            text: qsTranslate("Kestrio", "Export Failed")
            font.pixelSize: Theme.bodySize
            font.weight: Font.Medium
            color: Theme.danger
        }
        Text {
            Layout.fillWidth: true
            text: sheet.output.exportMessage
            wrapMode: Text.Wrap
            font.pixelSize: Theme.bodySize
            color: Theme.text
        }
        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.small
            Item { Layout.fillWidth: true }
            IconButton {
                text: qsTranslate("Kestrio", "Close")
                onClicked: sheet.close()
            }
            IconButton {
                text: qsTranslate("Kestrio", "Retry")
                isPrimary: true
                onClicked: sheet.output.exportPicture()
            }
        }
    }
}
