import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Asks before a picture leaves with blurs that are hidden: what they cover would be readable.
Sheet {
    id: sheet
    required property OutputPanel output
    title: qsTr("Blurred areas are hidden")
    sheetWidth: 420
    onClosed: output.dropPending()

    function goOn(showsAnnotations) {
        output.goOn(showsAnnotations)
        close()
    }

    Text {
        Layout.fillWidth: true
        wrapMode: Text.Wrap
        text: qsTr("Annotations are hidden, so the picture would show what the blurred areas cover.")
        font.pixelSize: Theme.bodySize
        color: Theme.text
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small
        Item { Layout.fillWidth: true }
        IconButton {
            text: qsTr("Cancel")
            key: "Esc"
            onClicked: sheet.close()
        }
        IconButton {
            objectName: "redaction.without"
            text: qsTr("Continue without")
            onClicked: sheet.goOn(false)
        }
        IconButton {
            objectName: "redaction.show"
            text: qsTr("Show and continue")
            isPrimary: true
            onClicked: sheet.goOn(true)
        }
    }
}
