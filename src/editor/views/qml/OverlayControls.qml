import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: controls
    required property EditorController controller
    readonly property bool hasOverlay: controller.style.overlay.value !== "none"
    spacing: Theme.small

    Caption { text: qsTranslate("Kestrio", "Overlay") }
    ThumbnailGrid {
        controller: controls.controller
        Layout.fillWidth: true
        kind: "overlay"
        columns: 5
        tileHeight: 32
        rows: controls.controller.choices.overlay
        current: controls.controller.style.overlay.value
        revision: controls.controller.thumbnailRevision
        onChosen: id => controls.controller.style.overlay.choose(id)
    }
    StyleSlider {
        Layout.fillWidth: true
        visible: controls.hasOverlay
        field: controls.controller.style.overlayOpacity
        label: qsTranslate("Kestrio", "Strength")
        unit: " %"
    }
    Segments {
        Layout.fillWidth: true
        visible: controls.hasOverlay
        rows: controls.controller.choices.overlayPosition
        current: controls.controller.style.overlayPosition.value
        onChosen: id => controls.controller.style.overlayPosition.choose(id)
    }
}
