import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: section
    spacing: Theme.medium
    required property EditorController controller
    readonly property StyleFields style: controller.style
    ThumbnailGrid {
        controller: section.controller
        Layout.fillWidth: true
        kind: "frame"
        columns: 3
        tileHeight: 52
        rows: section.controller.choices.frame
        current: section.style.frame.value
        revision: section.controller.thumbnailRevision
        onChosen: id => section.style.frame.choose(id)
    }
    StyleSlider {
        Layout.fillWidth: true
        field: section.style.frameScale
        visible: section.style.frame.value !== "none"
        label: qsTranslate("Kestrio", "Title bar size")
        factor: 100
        unit: " %"
    }
}
