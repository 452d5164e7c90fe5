import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: section
    required property EditorController controller
    readonly property StyleFields style: controller.style
    readonly property bool isText: style.watermarkType.value === "text"
    spacing: Theme.medium

    Toggle {
        Layout.fillWidth: true
        text: qsTranslate("Kestrio", "Show a watermark")
        checked: section.style.watermark.value
        onToggled: section.style.watermark.value = checked
    }
    Loader {
        Layout.fillWidth: true
        active: section.style.watermark.value
        visible: active
        sourceComponent: ColumnLayout {
            spacing: Theme.medium
            Segments {
                Layout.fillWidth: true
                rows: section.controller.watermark.types
                current: section.style.watermarkType.value
                onChosen: id => section.style.watermarkType.value = id
            }
            WatermarkTextControls {
                Layout.fillWidth: true
                visible: section.isText
                controller: section.controller
            }
            WatermarkPictureControls {
                Layout.fillWidth: true
                visible: !section.isText
                controller: section.controller
            }
            StyleSlider {
                Layout.fillWidth: true
                field: section.style.watermarkScale
                label: qsTranslate("Kestrio", "Size")
                factor: 100
                unit: " %"
            }
            StyleSlider {
                Layout.fillWidth: true
                field: section.style.watermarkOpacity
                label: qsTranslate("Kestrio", "Opacity")
                factor: 100
                unit: " %"
            }
            WatermarkPlace {
                Layout.fillWidth: true
                controller: section.controller
            }
        }
    }
    WatermarkPresets {
        Layout.fillWidth: true
        controller: section.controller
    }
}
