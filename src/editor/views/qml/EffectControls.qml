import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Effects on the backdrop alone.
ColumnLayout {
    id: controls
    required property EditorController controller
    spacing: Theme.small

    Caption { text: qsTranslate("Kestrio", "Effects") }
    ThumbnailGrid {
        controller: controls.controller
        Layout.fillWidth: true
        kind: "effect"
        tileHeight: 36
        rows: controls.controller.choices.effect
        current: controls.controller.style.effect
        revision: controls.controller.thumbnailRevision
        onChosen: id => controls.controller.choose("effect", id)
    }
    StyleSlider {
        Layout.fillWidth: true
        controller: controls.controller
        field: "blur"
        label: qsTranslate("Kestrio", "Blur")
        decimals: 1
    }
    StyleSlider {
        Layout.fillWidth: true
        controller: controls.controller
        field: "noise"
        label: qsTranslate("Kestrio", "Noise")
        unit: " %"
    }
    StyleSlider {
        Layout.fillWidth: true
        controller: controls.controller
        field: "saturation"
        label: qsTranslate("Kestrio", "Saturation")
        unit: " %"
    }
}
