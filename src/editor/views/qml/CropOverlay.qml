import QtQuick
import QtQuick.Layouts
import Kestrio.Editor

// The crop frame over the picture. Geometry comes from the crop model.
Item {
    id: overlay
    required property EditorController controller
    required property rect imageRect
    readonly property real scaleX: imageRect.width / Math.max(controller.imageSize.width, 1)
    readonly property real scaleY: imageRect.height / Math.max(controller.imageSize.height, 1)
    readonly property rect frame: Qt.rect(imageRect.x + controller.cropRect.x * scaleX,
        imageRect.y + controller.cropRect.y * scaleY,
        controller.cropRect.width * scaleX, controller.cropRect.height * scaleY)

    // Darkened surroundings: four rectangles around the frame.
    Repeater {
        model: [
            Qt.rect(overlay.imageRect.x, overlay.imageRect.y, overlay.imageRect.width, overlay.frame.y - overlay.imageRect.y),
            Qt.rect(overlay.imageRect.x, overlay.frame.y + overlay.frame.height, overlay.imageRect.width,
                overlay.imageRect.y + overlay.imageRect.height - overlay.frame.y - overlay.frame.height),
            Qt.rect(overlay.imageRect.x, overlay.frame.y, overlay.frame.x - overlay.imageRect.x, overlay.frame.height),
            Qt.rect(overlay.frame.x + overlay.frame.width, overlay.frame.y,
                overlay.imageRect.x + overlay.imageRect.width - overlay.frame.x - overlay.frame.width, overlay.frame.height)
        ]
        Rectangle {
            required property rect modelData
            x: modelData.x
            y: modelData.y
            width: Math.max(0, modelData.width)
            height: Math.max(0, modelData.height)
            color: "#99000000"
        }
    }
    Rectangle {
        x: overlay.frame.x
        y: overlay.frame.y
        width: overlay.frame.width
        height: overlay.frame.height
        color: "transparent"
        border.color: "#ffffff"
        border.width: 1.5
        Repeater {
            model: 2
            Rectangle {
                required property int index
                x: parent.width * (index + 1) / 3
                width: 1
                height: parent.height
                color: "#55ffffff"
            }
        }
        Repeater {
            model: 2
            Rectangle {
                required property int index
                y: parent.height * (index + 1) / 3
                height: 1
                width: parent.width
                color: "#55ffffff"
            }
        }
        DragHandler {
            target: null
            cursorShape: Qt.SizeAllCursor
            property rect start
            onActiveChanged: if (active) start = overlay.controller.cropRect
            onTranslationChanged: if (active) overlay.controller.moveCrop(start,
                translation.x / overlay.scaleX, translation.y / overlay.scaleY)
        }
    }
    Repeater {
        // In the order of the handles of the crop model.
        model: [[0, 0], [0.5, 0], [1, 0], [0, 0.5], [1, 0.5], [0, 1], [0.5, 1], [1, 1]]
        Rectangle {
            id: handle
            required property var modelData
            required property int index
            width: 14
            height: 14
            radius: 7
            color: "#ffffff"
            border.color: Theme.accent
            border.width: 2
            x: overlay.frame.x + modelData[0] * overlay.frame.width - 7
            y: overlay.frame.y + modelData[1] * overlay.frame.height - 7
            DragHandler {
                target: null
                margin: 8
                property rect start
                onActiveChanged: if (active) start = overlay.controller.cropRect
                onTranslationChanged: if (active) overlay.controller.dragCropHandle(handle.index, start,
                    translation.x / overlay.scaleX, translation.y / overlay.scaleY)
            }
            HoverHandler { cursorShape: [Qt.SizeFDiagCursor, Qt.SizeVerCursor, Qt.SizeBDiagCursor,
                Qt.SizeHorCursor, Qt.SizeHorCursor, Qt.SizeBDiagCursor, Qt.SizeVerCursor,
                Qt.SizeFDiagCursor][handle.index] }
        }
    }
    Rectangle {
        anchors.horizontalCenter: sizeLabel.horizontalCenter
        anchors.verticalCenter: sizeLabel.verticalCenter
        width: sizeLabel.width + 16
        height: 22
        radius: 11
        color: "#cc1d1d1f"
    }
    Text {
        id: sizeLabel
        x: overlay.frame.x + overlay.frame.width / 2 - width / 2
        y: Math.max(18, overlay.frame.y - 20) - height / 2
        text: Math.round(overlay.controller.cropRect.width) + " × " + Math.round(overlay.controller.cropRect.height)
        font.pixelSize: Theme.captionSize
        color: "#ffffff"
    }
    Rectangle {
        readonly property real below: overlay.frame.y + overlay.frame.height + 28
        x: Math.max(8, Math.min(overlay.width - width - 8, overlay.frame.x + overlay.frame.width / 2 - width / 2))
        y: below + height / 2 <= overlay.height ? below - height / 2 : Math.max(16, overlay.frame.y - 28 - height)
        width: tools.implicitWidth + 24
        height: 44
        radius: Theme.largeRadius
        color: Theme.surface
        border.color: Theme.hairline
        RowLayout {
            id: tools
            anchors.centerIn: parent
            spacing: Theme.small
            Caption { text: qsTr("Drag handles") + "   " + qsTr("Return Apply") + "   " + qsTr("Esc Cancel") }
            Chip {
                text: overlay.controller.cropRatio > 0 ? qsTr("Ratio Locked") : qsTr("Free Ratio")
                isCurrent: overlay.controller.cropRatio > 0
                onClicked: overlay.controller.setCropRatio(overlay.controller.cropRatio > 0 ? 0
                    : overlay.controller.cropRect.width / Math.max(1, overlay.controller.cropRect.height))
            }
            IconButton {
                symbol: "xmark"
                tip: qsTr("Cancel")
                key: "Esc"
                onClicked: overlay.controller.cancelCrop()
            }
            IconButton {
                symbol: "checkmark"
                isPrimary: true
                tip: qsTr("Apply")
                key: "Return"
                onClicked: overlay.controller.applyCrop()
            }
        }
    }
}
