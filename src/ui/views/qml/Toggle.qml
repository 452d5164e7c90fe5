import QtQuick
import QtQuick.Controls.Basic as Basic

// A switch with its label before it.
Basic.AbstractButton {
    id: toggle
    checkable: true
    implicitHeight: 28
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    contentItem: Item {
        Text {
            text: toggle.text
            font.pixelSize: Theme.bodySize
            color: Theme.text
            elide: Text.ElideRight
            anchors.left: parent.left
            anchors.right: track.left
            anchors.rightMargin: Theme.small
            anchors.verticalCenter: parent.verticalCenter
        }
        Rectangle {
            id: track
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            width: 34
            height: 20
            radius: 10
            color: toggle.checked ? Theme.accent : Theme.pressed
            border.width: toggle.visualFocus ? 2 : 0
            border.color: Theme.text
            Rectangle {
                x: toggle.checked ? 16 : 2
                y: 2
                width: 16
                height: 16
                radius: 8
                color: Theme.knob
                Behavior on x { NumberAnimation { duration: Theme.motion } }
            }
        }
    }
}
