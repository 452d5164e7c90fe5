import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: section
    spacing: Theme.medium
    required property EditorController controller
    readonly property var style: controller.style
    ThumbnailGrid {
        controller: section.controller
        Layout.fillWidth: true
        kind: "frame"
        columns: 3
        tileHeight: 52
        rows: section.controller.choices.frame
        current: section.style.frame
        revision: section.controller.thumbnailRevision
        onChosen: id => section.controller.choose("frame", id)
    }
    StyleSlider {
        Layout.fillWidth: true
        controller: section.controller
        field: "frameScale"
        visible: section.style.frame !== "none"
        label: qsTranslate("Kestrio", "Title bar size")
        factor: 100
        unit: " %"
    }
}
