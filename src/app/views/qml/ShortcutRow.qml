import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

// A hotkey with the button that records it, and what stands against its combination.
ColumnLayout {
    id: line
    required property SettingsController controller
    required property var row
    Layout.fillWidth: true
    spacing: 2

    RowLayout {
        Layout.fillWidth: true
        Text {
            Layout.fillWidth: true
            text: line.row.label
            font.pixelSize: Theme.bodySize
            color: Theme.text
        }
        Basic.AbstractButton {
            id: button
            objectName: "hotkey-" + line.row.id
            implicitWidth: 168
            implicitHeight: 30
            focusPolicy: Qt.TabFocus
            Accessible.name: line.row.label + " " + line.row.keys
            onClicked: line.controller.toggleRecording(line.row.id)
            onActiveFocusChanged: if (!activeFocus && line.row.isRecording) line.controller.stopRecording()
            contentItem: Text {
                text: line.row.isRecording ? qsTranslate("Kestrio", "Press shortcut...") : line.row.keys
                font.family: "monospace"
                font.pixelSize: Theme.bodySize
                color: line.row.isRecording ? Theme.accent : Theme.text
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
            background: Rectangle {
                radius: Theme.radius
                color: button.hovered ? Theme.hover : Theme.raised
                border.width: line.row.isRecording || button.visualFocus ? 2 : 1
                border.color: line.row.isRecording || button.visualFocus ? Theme.accent : Theme.hairline
            }
        }
    }
    Text {
        Layout.fillWidth: true
        visible: text !== ""
        text: line.row.note
        font.pixelSize: Theme.captionSize
        color: Theme.danger
        horizontalAlignment: Text.AlignRight
    }
}
