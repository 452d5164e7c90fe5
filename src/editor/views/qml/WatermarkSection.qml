import QtQuick
import QtQuick.Layouts
import Kestrio.Editor

PanelSection {
    id: section
    required property EditorController controller
    readonly property var style: controller.style
    title: qsTr("Watermark")

    Toggle {
        Layout.fillWidth: true
        text: qsTr("Show a watermark")
        checked: section.style.watermark
        onToggled: section.controller.set("watermark", checked)
    }
    TextBox {
        Layout.fillWidth: true
        visible: section.style.watermark
        text: section.style.watermarkText
        placeholder: qsTr("Text of the watermark")
        onEdited: text => section.controller.set("watermarkText", text)
    }
    ColorRow {
        Layout.fillWidth: true
        visible: section.style.watermark
        label: qsTr("Colour")
        color: section.style.watermarkColor
        onPicked: color => section.controller.set("watermarkColor", color)
    }
    SliderRow {
        Layout.fillWidth: true
        visible: section.style.watermark
        label: qsTr("Size")
        from: 0.02
        to: 0.5
        usual: 0.15
        factor: 100
        unit: " %"
        value: section.style.watermarkScale
        onMoved: value => section.controller.set("watermarkScale", value)
    }
    SliderRow {
        Layout.fillWidth: true
        visible: section.style.watermark
        label: qsTr("Opacity")
        to: 1
        usual: 0.5
        factor: 100
        unit: " %"
        value: section.style.watermarkOpacity
        onMoved: value => section.controller.set("watermarkOpacity", value)
    }
    Flow {
        Layout.fillWidth: true
        visible: section.style.watermark
        spacing: 6
        Repeater {
            model: section.controller.choices.watermarkPosition
            Chip {
                required property var modelData
                text: modelData.name
                isCurrent: section.style.watermarkPosition === modelData.id
                onClicked: section.controller.set("watermarkPosition", modelData.id)
            }
        }
    }
}
