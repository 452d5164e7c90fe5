import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: controls
    required property EditorController controller
    readonly property bool hasPattern: controller.style.pattern.value !== "none"
    spacing: Theme.small

    Caption { text: qsTranslate("Kestrio", "Pattern") }
    ThumbnailGrid {
        controller: controls.controller
        Layout.fillWidth: true
        kind: "pattern"
        tileHeight: 36
        rows: controls.controller.choices.pattern
        current: controls.controller.style.pattern.value
        revision: controls.controller.thumbnailRevision
        onChosen: id => controls.controller.style.pattern.choose(id)
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: controls.hasPattern
        field: controls.controller.style.patternIntensity
        label: qsTranslate("Kestrio", "Strength")
        factor: 100
        unit: " %"
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: controls.hasPattern
        field: controls.controller.style.patternThickness
        label: qsTranslate("Kestrio", "Thickness")
        factor: 100
        unit: " %"
    }
    RowLayout {
        Layout.fillWidth: true
        visible: controls.hasPattern
        Caption {
            Layout.fillWidth: true
            text: qsTranslate("Kestrio", "Colour of the pattern")
        }
        ColorWell {
            picking: controls.controller.colors
            color: controls.controller.style.patternColor.value
            quick: Theme.inkColors
            onMoved: color => controls.controller.style.patternColor.value = color
            onPicked: color => controls.controller.style.patternColor.choose(color)
        }
    }
}
