import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// The crop frame over the picture. Geometry comes from the crop panel.
Item {
    id: overlay
    required property EditorController controller
    required property rect imageRect
    readonly property CropPanel crop: controller.crop
    readonly property rect frame: crop.frame

    Binding { target: overlay.crop; property: "imageRect"; value: overlay.imageRect }
    Binding { target: overlay.crop; property: "viewHeight"; value: overlay.height }

    CropDimming {
        outer: overlay.imageRect
        inner: overlay.frame
    }
    Rectangle {
        x: overlay.frame.x
        y: overlay.frame.y
        width: overlay.frame.width
        height: overlay.frame.height
        color: "transparent"
        border.color: Theme.overlayLine
        border.width: 1.5
        Repeater {
            model: 2
            Rectangle {
                required property int index
                x: parent.width * (index + 1) / 3
                width: 1
                height: parent.height
                color: Theme.overlayThirds
                // Seen on light pictures.
                Rectangle {
                    x: 1
                    width: 1
                    height: parent.height
                    color: Theme.overlayShadow
                }
            }
        }
        Repeater {
            model: 2
            Rectangle {
                required property int index
                y: parent.height * (index + 1) / 3
                height: 1
                width: parent.width
                color: Theme.overlayThirds
                Rectangle {
                    y: 1
                    width: parent.width
                    height: 1
                    color: Theme.overlayShadow
                }
            }
        }
        DragHandler {
            target: null
            cursorShape: Qt.SizeAllCursor
            onActiveChanged: if (active) overlay.crop.beginDrag()
            onActiveTranslationChanged: if (active) overlay.crop.moveFrame(Qt.point(activeTranslation.x, activeTranslation.y))
        }
    }
    Repeater {
        model: 8
        Rectangle {
            id: handle
            required property int index
            readonly property point place: overlay.crop.handles[index]
            width: overlay.crop.handleSize
            height: width
            radius: width / 2
            color: Theme.knob
            border.color: Theme.accent
            border.width: 2
            x: place.x - width / 2
            y: place.y - height / 2
            DragHandler {
                target: null
                margin: 10
                dragThreshold: 1
                onActiveChanged: if (active) overlay.crop.beginDrag()
                onActiveTranslationChanged: if (active) overlay.crop.dragHandle(handle.index, Qt.point(activeTranslation.x, activeTranslation.y))
            }
            HoverHandler {
                margin: 10
                cursorShape: [Qt.SizeFDiagCursor, Qt.SizeVerCursor, Qt.SizeBDiagCursor,
                    Qt.SizeHorCursor, Qt.SizeHorCursor, Qt.SizeBDiagCursor, Qt.SizeVerCursor,
                    Qt.SizeFDiagCursor][handle.index]
            }
        }
    }
    Rectangle {
        x: overlay.frame.x + overlay.frame.width / 2 - width / 2
        y: overlay.crop.labelY - height / 2
        width: sizeLabel.implicitWidth + 16
        height: 22
        radius: 11
        color: Theme.overlayLabel
        Text {
            id: sizeLabel
            anchors.centerIn: parent
            text: overlay.crop.sizeText
            font.pixelSize: Theme.captionSize
            color: Theme.overlayText
        }
    }
    CropToolbar {
        crop: overlay.crop
        commands: overlay.controller.commands
        room: overlay.width
        ratios: overlay.controller.choices.aspect
        x: Math.max(8, Math.min(overlay.width - width - 8, overlay.frame.x + overlay.frame.width / 2 - width / 2))
        y: Math.max(8, Math.min(overlay.height - height - 8, overlay.crop.toolbarY - height / 2))
    }
}
