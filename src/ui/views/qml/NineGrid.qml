import QtQuick
import QtQuick.Controls.Basic as Basic

// One of nine places, as dots in a square.
Grid {
    id: grid
    property var rows: []
    property string current
    signal chosen(string id)
    columns: 3
    spacing: 4
    Repeater {
        model: grid.rows
        Basic.AbstractButton {
            id: place
            required property var modelData
            readonly property bool isCurrent: modelData.id === grid.current
            implicitWidth: 34
            implicitHeight: 26
            focusPolicy: Qt.TabFocus
            Accessible.name: modelData.name
            onClicked: grid.chosen(modelData.id)
            Hint { isWanted: place.hovered; words: place.modelData.name }
            background: Rectangle {
                radius: Theme.radius
                color: place.hovered ? Theme.pressed : Theme.well
                border.width: place.visualFocus ? 2 : 0
                border.color: Theme.accent
            }
            contentItem: Item {
                Rectangle {
                    anchors.centerIn: parent
                    width: place.isCurrent ? 12 : 8
                    height: width
                    radius: width / 2
                    color: place.isCurrent ? Theme.accent : Theme.secondaryText
                    Behavior on width { NumberAnimation { duration: Theme.motion } }
                }
            }
        }
    }
}
