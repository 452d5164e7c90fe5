import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// Follows the pointer with a magnifier and picks the pixel under it; with Alt for the backdrop.
Item {
    id: overlay
    required property EditorController controller
    required property CanvasItem canvas
    readonly property ColorPanel colors: controller.colors

    MouseArea {
        id: area
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.CrossCursor
        onPositionChanged: mouse => overlay.colors.movePointer(
            overlay.canvas.imagePoint(Qt.point(mouse.x, mouse.y)))
        onClicked: mouse => overlay.colors.pick(
            overlay.canvas.imagePoint(Qt.point(mouse.x, mouse.y)),
            (mouse.modifiers & Qt.AltModifier) !== 0)
    }
    Item {
        visible: area.containsMouse
        width: 132
        height: 168
        x: area.mouseX + (area.mouseX + 160 > overlay.width ? -152 : 20)
        y: Math.max(8, Math.min(overlay.height - height - 8, area.mouseY + 20))
        MagnifierItem {
            width: 132
            height: 132
            controller: overlay.controller
        }
        Rectangle {
            width: 132
            height: 132
            radius: 66
            color: "transparent"
            border.color: Theme.knobEdge
            border.width: 2
        }
        Rectangle {
            y: 138
            anchors.horizontalCenter: parent.horizontalCenter
            width: value.implicitWidth + 44
            height: 26
            radius: 13
            color: Theme.surface
            border.color: Theme.hairline
            Rectangle {
                x: 7
                anchors.verticalCenter: parent.verticalCenter
                width: 14
                height: 14
                radius: 7
                color: overlay.colors.swatch
                border.color: Theme.hairline
            }
            Text {
                id: value
                x: 28
                anchors.verticalCenter: parent.verticalCenter
                text: overlay.colors.text
                font.pixelSize: Theme.captionSize
                color: Theme.text
            }
        }
    }
}
