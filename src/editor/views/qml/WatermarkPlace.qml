import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Where the mark stands, and how far from the edges.
ColumnLayout {
    id: place
    required property EditorController controller
    readonly property string position: controller.style.watermarkPosition
    spacing: Theme.small

    Caption { text: qsTranslate("Kestrio", "Place") }
    NineGrid {
        rows: place.controller.watermark.positions
        current: place.position
        onChosen: id => place.controller.set("watermarkPosition", id)
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: !/Center$|^center$/.test(place.position)
        controller: place.controller
        field: "watermarkOffsetX"
        label: qsTranslate("Kestrio", "Horizontal offset")
        unit: " pt"
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: !/^middle|^center$/.test(place.position)
        controller: place.controller
        field: "watermarkOffsetY"
        label: qsTranslate("Kestrio", "Vertical offset")
        unit: " pt"
    }
}
