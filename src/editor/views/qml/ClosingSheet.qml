import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Asks before a window closes on changes that are nowhere else.
Sheet {
    id: sheet
    required property EditorController controller
    readonly property ClosingPanel closing: controller.closing
    readonly property bool hasFailed: closing.errorMessage !== ""
    title: hasFailed ? qsTr("Saving failed") : qsTr("Save the changes?")
    sheetWidth: 440
    isBusy: closing.state === "saving"
    onClosed: closing.cancel()

    Connections {
        target: sheet.closing
        function onStateChanged() { if (sheet.closing.state === "open") sheet.isShown = false }
    }
    Shortcut {
        enabled: sheet.isShown && !sheet.isBusy
        sequences: ["Return", "Enter", StandardKey.Save]
        onActivated: sheet.closing.save()
    }
    Shortcut {
        enabled: sheet.isShown && !sheet.isBusy
        sequence: "Ctrl+D"
        onActivated: sheet.closing.discard()
    }

    Text {
        Layout.fillWidth: true
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: sheet.hasFailed ? sheet.closing.errorMessage
            : qsTr("“%1” was changed since it last left the editor. Save writes it into the save folder.").arg(sheet.controller.name)
        font.pixelSize: Theme.bodySize
        color: sheet.hasFailed ? Theme.danger : Theme.text
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small
        IconButton {
            objectName: "editor.closing.discard"
            text: qsTr("Discard")
            tip: qsTr("Close without saving")
            key: "Ctrl+D"
            enabled: !sheet.isBusy
            onClicked: sheet.closing.discard()
        }
        Item { Layout.fillWidth: true }
        IconButton {
            text: qsTr("Cancel")
            tip: qsTr("Go on editing")
            key: "Esc"
            enabled: !sheet.isBusy
            onClicked: sheet.close()
        }
        IconButton {
            visible: sheet.hasFailed
            text: qsTr("Choose Folder…")
            tip: qsTr("Save into another folder")
            enabled: !sheet.isBusy
            onClicked: sheet.closing.saveElsewhere()
        }
        IconButton {
            objectName: "editor.closing.save"
            text: sheet.isBusy ? qsTr("Saving…") : sheet.hasFailed ? qsTr("Try Again") : qsTr("Save")
            tip: qsTr("Save and close")
            key: "Return"
            isPrimary: true
            enabled: !sheet.isBusy
            onClicked: sheet.closing.save()
        }
    }
}
