import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: section
    required property EditorController controller
    readonly property StyleFields style: controller.style
    spacing: Theme.medium

    Segments {
        Layout.fillWidth: true
        rows: section.controller.choices.backdropType
        current: section.style.backdropType.value
        onChosen: id => {
            if (id === "image" && !section.style.hasImage.value) section.controller.chooseBackdropImage()
            else section.style.backdropType.choose(id)
        }
    }
    Loader {
        Layout.fillWidth: true
        visible: item !== null
        sourceComponent: section.style.backdropType.value === "solid" ? solid
            : section.style.backdropType.value === "gradient" ? gradient
            : section.style.backdropType.value === "image" ? image : null
    }
    StyleSlider {
        Layout.fillWidth: true
        field: section.style.padding
        label: qsTranslate("Kestrio", "Padding")
        unit: " pt"
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: section.style.backdropType.value !== "none"
        field: section.style.opacity
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
        checked: section.style.keepPixels.value
        onToggled: section.style.keepPixels.choose(checked)
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
            color: section.style.solidColor.value
            onMoved: color => section.style.solidColor.value = color
            onPicked: color => section.style.solidColor.choose(color)
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
