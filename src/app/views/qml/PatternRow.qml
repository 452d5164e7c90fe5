import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

// A pattern of private data: its switch, what it finds, and for the user's own its buttons.
ColumnLayout {
    id: line
    required property var row
    property bool isOwn: false
    signal switched(bool isEnabled)
    signal editRequested()
    signal removeRequested()
    Layout.fillWidth: true
    spacing: 0

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.tiny
        Toggle {
            Layout.fillWidth: true
            text: line.row.name
            checked: line.row.isEnabled
            onToggled: {
                const isOn = checked
                checked = Qt.binding(() => line.row.isEnabled)
                line.switched(isOn)
            }
        }
        IconButton {
            visible: line.isOwn
            symbol: "pencil"
            tip: qsTranslate("Kestrio", "Edit Pattern")
            implicitWidth: 28
            implicitHeight: 28
            onClicked: line.editRequested()
        }
        IconButton {
            visible: line.isOwn
            symbol: "trash"
            tip: qsTranslate("Kestrio", "Delete")
            implicitWidth: 28
            implicitHeight: 28
            onClicked: line.removeRequested()
        }
    }
    Text {
        Layout.fillWidth: true
        Layout.rightMargin: 56
        visible: text !== ""
        text: line.isOwn && line.row.description === "" ? line.row.regex : line.row.description
        textFormat: Text.PlainText
        font.pixelSize: Theme.captionSize
        color: Theme.secondaryText
        wrapMode: Text.WrapAnywhere
        maximumLineCount: 2
        elide: Text.ElideRight
    }
}
