import QtQuick
import QtQuick.Layouts
import Kestrio.Editor

PanelSection {
    id: section
    required property EditorController controller
    readonly property var style: controller.style
    title: qsTr("Frame")

    ThumbnailGrid {
        Layout.fillWidth: true
        kind: "frame"
        columns: 3
        tileHeight: 52
        rows: section.isOpen ? section.controller.choices.frame : []
        current: section.style.frame
        revision: section.controller.thumbnailRevision
        onChosen: id => section.controller.choose("frame", id)
    }
    SliderRow {
        Layout.fillWidth: true
        visible: section.style.frame !== "none"
        label: qsTr("Title bar size")
        from: 0.5
        to: 2
        usual: 1
        factor: 100
        unit: " %"
        value: section.style.frameScale
        onMoved: value => section.controller.set("frameScale", value)
        onSettled: section.controller.commit()
    }
}
