import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Asks before a picture leaves with blurs that are hidden: what they cover would be readable.
Sheet {
    id: sheet
    required property OutputPanel output
    title: qsTranslate("Kestrio", "Blurred areas are hidden")
    sheetWidth: 420
    onClosed: output.dropPending()

    function goOn(showsAnnotations) {
        output.goOn(showsAnnotations)
        close()
    }

    Text {
        Layout.fillWidth: true
        wrapMode: Text.Wrap
        text: qsTranslate("Kestrio", "Annotations are hidden, so the picture would show what the blurred areas cover.")
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
            objectName: "redaction.without"
            text: qsTranslate("Kestrio", "Continue without")
            onClicked: sheet.goOn(false)
        }
        IconButton {
            objectName: "redaction.show"
            text: qsTranslate("Kestrio", "Show and continue")
            isPrimary: true
            onClicked: sheet.goOn(true)
        }
    }
}
