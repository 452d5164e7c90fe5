import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Asks before everything is given up: a reset cannot be undone.
Sheet {
    id: sheet
    required property EditorController controller
    title: qsTranslate("Kestrio", "Start over?")
    sheetWidth: 380

    Text {
        Layout.fillWidth: true
        wrapMode: Text.Wrap
        text: qsTranslate("Kestrio", "Annotations, style and all steps of undo go. The picture stays as it is now.")
        font.pixelSize: Theme.bodySize
        color: Theme.text
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small
        Item { Layout.fillWidth: true }
        IconButton {
            text: qsTranslate("Kestrio", "Cancel")
            key: "Esc"
            onClicked: sheet.close()
        }
        IconButton {
            text: qsTranslate("Kestrio", "Start over")
            isPrimary: true
            onClicked: {
                sheet.controller.reset()
                sheet.close()
            }
        }
    }
}
