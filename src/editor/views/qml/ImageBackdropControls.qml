import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// The backdrop's picture: chosen, or dropped here.
ColumnLayout {
    id: controls
    required property EditorController controller
    spacing: Theme.medium

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: 52
        radius: Theme.radius
        color: drop.containsDrag ? Theme.pressed : Theme.well
        border.color: drop.containsDrag ? Theme.accent : Theme.hairline
        border.width: drop.containsDrag ? 2 : 1
        IconButton {
            anchors.fill: parent
            anchors.margins: 2
            symbol: "photo"
            text: controls.controller.style.hasImage.value ? qsTranslate("Kestrio", "Another picture…") : qsTranslate("Kestrio", "Choose picture…")
            tip: qsTranslate("Kestrio", "Or drop a picture here")
            onClicked: controls.controller.chooseBackdropImage()
        }
        DropArea {
            id: drop
            anchors.fill: parent
            onDropped: drop => {
                if (drop.hasUrls) controls.controller.setBackdropImage(drop.urls[0])
                else controls.controller.refuseDrop()
            }
        }
    }
    Segments {
        Layout.fillWidth: true
        visible: controls.controller.style.hasImage.value
        rows: controls.controller.choices.imageFit
        current: controls.controller.style.imageFit.value
        onChosen: id => controls.controller.style.imageFit.choose(id)
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: controls.controller.style.hasImage.value
        field: controls.controller.style.imageBlur
        label: qsTranslate("Kestrio", "Blur of the picture")
        decimals: 1
        unit: " pt"
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: controls.controller.style.hasImage.value
        field: controls.controller.style.imageOpacity
        label: qsTranslate("Kestrio", "Opacity of the picture")
        unit: " %"
    }
}
