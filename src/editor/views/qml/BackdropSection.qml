import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: section
    required property EditorController controller
    readonly property var style: controller.style
    spacing: Theme.medium

    Segments {
        Layout.fillWidth: true
        rows: section.controller.choices.backdropType
        current: section.style.backdropType
        onChosen: id => {
            if (id === "image" && !section.style.hasImage) section.controller.chooseBackdropImage()
            else section.controller.choose("backdropType", id)
        }
    }
    Loader {
        Layout.fillWidth: true
        visible: item !== null
        sourceComponent: section.style.backdropType === "solid" ? solid
            : section.style.backdropType === "gradient" ? gradient
            : section.style.backdropType === "image" ? image : null
    }
    StyleSlider {
        Layout.fillWidth: true
        controller: section.controller
        field: "padding"
        label: qsTranslate("Kestrio", "Padding")
        unit: " pt"
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: section.style.backdropType !== "none"
        controller: section.controller
        field: "opacity"
        label: qsTranslate("Kestrio", "Opacity")
        factor: 100
        unit: " %"
    }
    AspectRatioPicker {
        Layout.fillWidth: true
        controller: section.controller
    }
    Toggle {
        id: keepPixels
        Layout.fillWidth: true
        text: qsTranslate("Kestrio", "Keep screenshot pixels")
        checked: section.style.keepPixels
        onToggled: section.controller.choose("keepPixels", checked)
        Hint {
            isWanted: keepPixels.hovered
            words: qsTranslate("Kestrio", "The canvas grows by padding and frame, and the screenshot stays sharp")
        }
    }
    PatternControls {
        Layout.fillWidth: true
        controller: section.controller
    }
    OverlayControls {
        Layout.fillWidth: true
        controller: section.controller
    }
    EffectControls {
        Layout.fillWidth: true
        controller: section.controller
    }

    Component {
        id: solid
        ColorRow {
            picking: section.controller.colors
            label: qsTranslate("Kestrio", "Colour")
            color: section.style.solidColor
            onMoved: color => section.controller.set("solidColor", color)
            onPicked: color => section.controller.choose("solidColor", color)
        }
    }
    Component {
        id: gradient
        GradientControls { controller: section.controller }
    }
    Component {
        id: image
        ImageBackdropControls { controller: section.controller }
    }
}
