import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Where the mark stands, and how far from the edges.
ColumnLayout {
    id: place
    required property EditorController controller
    readonly property string position: controller.style.watermarkPosition.value
    spacing: Theme.small

    Caption { text: qsTranslate("Kestrio", "Place") }
    NineGrid {
        rows: place.controller.watermark.positions
        current: place.position
        onChosen: id => place.controller.style.watermarkPosition.value = id
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: !/Center$|^center$/.test(place.position)
        field: place.controller.style.watermarkOffsetX
        label: qsTranslate("Kestrio", "Horizontal offset")
        unit: " pt"
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: !/^middle|^center$/.test(place.position)
        field: place.controller.style.watermarkOffsetY
        label: qsTranslate("Kestrio", "Vertical offset")
        unit: " pt"
    }
}
