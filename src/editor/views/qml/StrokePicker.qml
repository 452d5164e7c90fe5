import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// Widths of strokes as dots.
Row {
    id: picker
    required property AnnotationPanel panel
    spacing: 2
    Repeater {
        model: picker.panel.strokeSizes
        Basic.AbstractButton {
            id: stroke
            required property var modelData
            required property int index
            readonly property bool isCurrent: picker.panel.tool.strokeSize === modelData.id
            implicitWidth: 28
            implicitHeight: 28
            focusPolicy: Qt.TabFocus
            Accessible.name: modelData.name
            onClicked: picker.panel.setStrokeSize(modelData.id)
            Hint { isWanted: stroke.hovered; words: stroke.modelData.name }
            background: Rectangle {
                radius: Theme.radius
                color: stroke.isCurrent ? Theme.pressed : stroke.hovered ? Theme.hover : "transparent"
                border.width: stroke.visualFocus ? 2 : 0
                border.color: Theme.accent
            }
            contentItem: Item {
                Rectangle {
                    anchors.centerIn: parent
                    width: 4 + 4 * stroke.index
                    height: width
                    radius: width / 2
                    color: Theme.text
                }
            }
        }
    }
}
