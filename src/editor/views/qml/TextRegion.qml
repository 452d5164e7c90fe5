import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// A part of the picture is dragged out, and its text read.
Item {
    id: chooser
    required property TextPanel panel
    required property CanvasItem canvas

    Item {
        id: picture
        x: chooser.canvas.imageCorner.x
        y: chooser.canvas.imageCorner.y
        width: chooser.canvas.imageExtent.width
        height: chooser.canvas.imageExtent.height
        transformOrigin: Item.TopLeft
        rotation: chooser.canvas.imageTurn
        Rectangle {
            visible: area.pressed
            x: Math.min(area.from.x, area.to.x)
            y: Math.min(area.from.y, area.to.y)
            width: Math.abs(area.to.x - area.from.x)
            height: Math.abs(area.to.y - area.from.y)
            color: "transparent"
            border.color: Theme.accent
            border.width: 2
            Rectangle {
                anchors.fill: parent
                color: Theme.accent
                opacity: 0.12
            }
        }
    }
    MouseArea {
        id: area
        property point from
        property point to
        anchors.fill: parent
        cursorShape: Qt.CrossCursor
        onPressed: mouse => {
            from = mapToItem(picture, mouse.x, mouse.y)
            to = from
        }
        onPositionChanged: mouse => to = mapToItem(picture, mouse.x, mouse.y)
        onReleased: chooser.panel.readRegion(Qt.rect(from.x / picture.width, from.y / picture.height,
            (to.x - from.x) / picture.width, (to.y - from.y) / picture.height))
    }
    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        y: Theme.medium
        width: label.implicitWidth + 28
        height: 34
        radius: Theme.largeRadius
        color: Theme.note
        Text {
            id: label
            anchors.centerIn: parent
            text: qsTranslate("Kestrio", "Drag over the text to read")
            font.pixelSize: Theme.bodySize
            color: Theme.noteText
        }
    }
}
