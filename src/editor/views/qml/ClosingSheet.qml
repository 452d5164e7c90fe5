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
    title: hasFailed ? qsTranslate("Kestrio", "Saving failed") : qsTranslate("Kestrio", "Save the changes?")
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
            : qsTranslate("Kestrio", "“%1” was changed since it last left the editor. Save writes it into the save folder.").arg(sheet.controller.name)
        font.pixelSize: Theme.bodySize
        color: sheet.hasFailed ? Theme.danger : Theme.text
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small
        IconButton {
            objectName: "editor.closing.discard"
            text: qsTranslate("Kestrio", "Discard")
            tip: qsTranslate("Kestrio", "Close without saving")
            key: "Ctrl+D"
            enabled: !sheet.isBusy
            onClicked: sheet.closing.discard()
        }
        Item { Layout.fillWidth: true }
        IconButton {
            text: qsTranslate("Kestrio", "Cancel")
            tip: qsTranslate("Kestrio", "Go on editing")
            key: "Esc"
            enabled: !sheet.isBusy
            onClicked: sheet.close()
        }
        IconButton {
            visible: sheet.hasFailed
            text: qsTranslate("Kestrio", "Choose Folder…")
            tip: qsTranslate("Kestrio", "Save into another folder")
            enabled: !sheet.isBusy
            onClicked: sheet.closing.saveElsewhere()
        }
        IconButton {
            objectName: "editor.closing.save"
            text: sheet.isBusy ? qsTranslate("Kestrio", "Saving…") : sheet.hasFailed ? qsTranslate("Kestrio", "Try Again") : qsTranslate("Kestrio", "Save")
            tip: qsTranslate("Kestrio", "Save and close")
            key: "Return"
            isPrimary: true
            enabled: !sheet.isBusy
            onClicked: sheet.closing.save()
        }
    }
}
