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
        current: controls.controller.style.effect.value
        revision: controls.controller.thumbnailRevision
        onChosen: id => controls.controller.style.effect.choose(id)
    }
    StyleSlider {
        Layout.fillWidth: true
        field: controls.controller.style.blur
        label: qsTranslate("Kestrio", "Blur")
        decimals: 1
    }
    StyleSlider {
        Layout.fillWidth: true
        field: controls.controller.style.noise
        label: qsTranslate("Kestrio", "Noise")
        unit: " %"
    }
    StyleSlider {
        Layout.fillWidth: true
        field: controls.controller.style.saturation
        label: qsTranslate("Kestrio", "Saturation")
        unit: " %"
    }
}
