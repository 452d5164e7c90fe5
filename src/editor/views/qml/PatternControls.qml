import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: controls
    required property EditorController controller
    readonly property bool hasPattern: controller.style.pattern !== "none"
    spacing: Theme.small

    Caption { text: qsTranslate("Kestrio", "Pattern") }
    ThumbnailGrid {
        controller: controls.controller
        Layout.fillWidth: true
        kind: "pattern"
        tileHeight: 36
        rows: controls.controller.choices.pattern
        current: controls.controller.style.pattern
        revision: controls.controller.thumbnailRevision
        onChosen: id => controls.controller.choose("pattern", id)
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: controls.hasPattern
        controller: controls.controller
        field: "patternIntensity"
        label: qsTranslate("Kestrio", "Strength")
        factor: 100
        unit: " %"
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: controls.hasPattern
        controller: controls.controller
        field: "patternThickness"
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
            color: controls.controller.style.patternColor
            quick: Theme.inkColors
            onMoved: color => controls.controller.set("patternColor", color)
            onPicked: color => controls.controller.choose("patternColor", color)
        }
    }
}
