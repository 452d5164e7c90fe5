import QtQuick
import Kestrio.Editor
import Kestrio.Ui

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
        anchors.topMargin: stage.controller.isAnnotationMode ? 104 : 0
        controller: stage.controller
        fillColor: Theme.ground
        focus: true
        Accessible.role: Accessible.Canvas
        Accessible.name: qsTranslate("Kestrio", "Canvas")
        onContextMenuRequested: place => menu.createObject(board).popup(place.x, place.y)
    }
    Item {
        anchors.fill: board
        LayoutMirroring.enabled: false
        LayoutMirroring.childrenInherit: true
        InlineTextEditor { canvas: board }
        NumberEditor { canvas: board; controller: stage.controller }
    }
    Loader {
        anchors.fill: board
        // Marks, the crop frame and the eyedropper have the pointer to themselves.
        active: stage.controller.text.hasResults && !stage.controller.isAnnotationMode
            && !stage.controller.isCropMode && !stage.controller.colors.isPicking && !stage.controller.text.isChoosing
        LayoutMirroring.enabled: false
        LayoutMirroring.childrenInherit: true
        sourceComponent: TextHighlights {
            panel: stage.controller.text
            canvas: board
        }
    }
    Loader {
        anchors.fill: board
        active: stage.controller.isCropMode
        // Lies on the picture, which is never mirrored.
        LayoutMirroring.enabled: false
        LayoutMirroring.childrenInherit: true
        sourceComponent: CropOverlay {
            controller: stage.controller
            imageRect: board.imageRect
        }
    }
    Loader {
        anchors.fill: board
        active: stage.controller.colors.isPicking
        LayoutMirroring.enabled: false
        LayoutMirroring.childrenInherit: true
        sourceComponent: EyedropperOverlay {
            controller: stage.controller
            canvas: board
        }
    }
    Loader {
        // Stays once it was needed.
        active: stage.controller.isAnnotationMode || item !== null
        anchors.horizontalCenter: parent.horizontalCenter
        y: stage.controller.isPaletteShown ? 12 : -height - 8
        visible: y > -height
        Behavior on y { NumberAnimation { duration: Theme.motion; easing.type: Easing.OutCubic } }
        sourceComponent: AnnotationPalette { controller: stage.controller }
    }
    Loader {
        anchors.fill: board
        active: stage.controller.text.isChoosing
        LayoutMirroring.enabled: false
        LayoutMirroring.childrenInherit: true
        sourceComponent: TextRegion {
            panel: stage.controller.text
            canvas: board
        }
    }
    Loader {
        anchors.horizontalCenter: parent.horizontalCenter
        y: Theme.medium + board.anchors.topMargin
        active: stage.controller.text.isScanning
        sourceComponent: ScanningNote { panel: stage.controller.text }
    }
    Component {
        id: menu
        AnnotationMenu {
            controller: stage.controller
            onClosed: destroy()
        }
    }
    DropTarget {
        anchors.fill: parent
        controller: stage.controller
    }
}
