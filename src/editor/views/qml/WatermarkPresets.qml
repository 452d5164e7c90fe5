import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Watermarks kept under a name.
ColumnLayout {
    id: presets
    required property EditorController controller
    readonly property WatermarkPanel panel: controller.watermark
    spacing: Theme.small

    Caption { text: qsTranslate("Kestrio", "Presets") }
    Repeater {
        model: presets.panel.presets
        RowLayout {
            id: row
            required property var modelData
            Layout.fillWidth: true
            spacing: Theme.tiny
            Chip {
                Layout.fillWidth: true
                text: row.modelData.name
                isCurrent: presets.panel.currentPreset === row.modelData.id
                onClicked: presets.panel.selectPreset(row.modelData.id)
            }
            IconButton {
                symbol: "trash"
                implicitWidth: 26
                implicitHeight: 26
                tip: qsTranslate("Kestrio", "Delete this preset")
                onClicked: presets.panel.deletePreset(row.modelData.id)
            }
        }
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.tiny
        TextBox {
            id: field
            Layout.fillWidth: true
            placeholder: qsTranslate("Kestrio", "Name of a new preset")
            onAccepted: keep.clicked()
        }
        IconButton {
            id: keep
            symbol: "plus"
            tip: qsTranslate("Kestrio", "Keep this watermark")
            onClicked: {
                presets.panel.savePreset(field.text)
                field.text = ""
            }
        }
    }
}
