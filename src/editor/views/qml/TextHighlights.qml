import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// Frames round the text that was read. A click copies a block; drags and the wheel are the canvas'.
Item {
    id: overlay
    required property TextPanel panel
    required property CanvasItem canvas

    HighlightsItem {
        id: frames
        objectName: "textHighlights"
        panel: overlay.panel
        color: Theme.accent
        x: overlay.canvas.imageCorner.x
        y: overlay.canvas.imageCorner.y
        width: overlay.canvas.imageExtent.width
        height: overlay.canvas.imageExtent.height
        transformOrigin: Item.TopLeft
        rotation: overlay.canvas.imageTurn

        HoverHandler {
            id: hover
            cursorShape: frames.hovered >= 0 ? Qt.PointingHandCursor : undefined
            onPointChanged: frames.hovered = hovered ? frames.blockAt(point.position) : -1
            onHoveredChanged: if (!hovered) frames.hovered = -1
        }
        TapHandler {
            onTapped: eventPoint => {
                const block = frames.blockAt(eventPoint.position)
                if (block >= 0) overlay.copyBlock(block)
            }
        }
        TapHandler {
            acceptedButtons: Qt.RightButton
            onTapped: eventPoint => {
                const block = frames.blockAt(eventPoint.position)
                if (block < 0) return
                const place = frames.mapToItem(overlay, eventPoint.position)
                menu.createObject(overlay, { block: block }).popup(place.x, place.y)
            }
        }
    }
    Rectangle {
        id: bubble
        property int block: -1
        readonly property rect frame: frames.mapToItem(overlay, block >= 0 ? frames.blockRect(block) : Qt.rect(0, 0, 0, 0))
        visible: block >= 0
        width: label.implicitWidth + 20
        height: 26
        radius: 13
        x: Math.max(4, Math.min(overlay.width - width - 4, frame.x + frame.width / 2 - width / 2))
        y: Math.max(4, frame.y - height - 6)
        color: Theme.note
        Accessible.role: Accessible.AlertMessage
        Accessible.name: label.text
        Text {
            id: label
            anchors.centerIn: parent
            text: qsTranslate("Kestrio", "Copied")
            font.pixelSize: Theme.captionSize
            color: Theme.noteText
        }
        Timer {
            id: fading
            interval: 1200
            onTriggered: bubble.block = -1
        }
    }
    Component {
        id: menu
        TextMenu {
            panel: overlay.panel
            onCopyRequested: block => overlay.copyBlock(block)
            onClosed: destroy()
        }
    }

    function copyBlock(block) {
        panel.copyBlock(block)
        bubble.block = block
        fading.restart()
    }
}
