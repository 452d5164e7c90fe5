import QtQuick
import Kestrio.Editor

// The canvas with what floats over it.
Item {
    id: stage
    required property EditorController controller
    clip: true

    function focusCanvas() { board.forceActiveFocus() }

    CanvasItem {
        id: board
        objectName: "canvas"
        anchors.fill: parent
        // Room for the palette, which covers no part of the picture then.
        anchors.topMargin: stage.controller.isAnnotationMode ? tools.baseHeight + 12 : 0
        controller: stage.controller
        focus: true
        Accessible.role: Accessible.Canvas
        Accessible.name: qsTr("Canvas")
        onContextMenuRequested: place => menu.popup(board, place.x, place.y)
    }
    Item {
        anchors.fill: board
        InlineTextEditor { canvas: board }
        NumberEditor { canvas: board; controller: stage.controller }
    }
    Loader {
        anchors.fill: board
        active: stage.controller.isCropMode
        sourceComponent: CropOverlay {
            controller: stage.controller
            imageRect: board.imageRect
        }
    }
    Loader {
        anchors.fill: board
        active: stage.controller.colors.isPicking
        sourceComponent: EyedropperOverlay {
            controller: stage.controller
            canvas: board
        }
    }
    AnnotationPalette {
        id: tools
        controller: stage.controller
        anchors.horizontalCenter: parent.horizontalCenter
        y: stage.controller.isAnnotationMode ? 12 : -height - 8
        visible: y > -height
        Behavior on y { NumberAnimation { duration: Theme.motion; easing.type: Easing.OutCubic } }
    }
    AnnotationMenu {
        id: menu
        controller: stage.controller
    }
    DropTarget {
        anchors.fill: parent
        controller: stage.controller
    }
}
