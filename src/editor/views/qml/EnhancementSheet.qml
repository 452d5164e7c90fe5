import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Improves the picture itself by filters.
Sheet {
    id: sheet
    required property EditorController controller
    property string mode: "auto"
    property real strength: 0.5
    title: qsTr("Enhance the picture")
    sheetWidth: 420
    isBusy: controller.isEnhancing

    Segments {
        Layout.fillWidth: true
        rows: [{id: "auto", name: qsTr("Auto")}, {id: "sharpen", name: qsTr("Sharpen")},
            {id: "denoise", name: qsTr("Denoise")}, {id: "enhanceColors", name: qsTr("Colours")},
            {id: "upscale", name: qsTr("Upscale")}]
        current: sheet.mode
        onChosen: id => sheet.mode = id
    }
    SliderRow {
        Layout.fillWidth: true
        enabled: sheet.mode !== "upscale"
        opacity: enabled ? 1 : 0.4
        label: qsTr("Intensity")
        to: 1
        usual: 0.5
        factor: 100
        unit: " %"
        value: sheet.strength
        onMoved: value => sheet.strength = value
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small
        IconButton {
            text: qsTr("Restore original")
            enabled: sheet.controller.canRestore && !sheet.controller.isEnhancing
            onClicked: sheet.controller.restoreOriginal()
        }
        Item { Layout.fillWidth: true }
        IconButton {
            text: sheet.controller.isEnhancing ? qsTr("Working…") : qsTr("Enhance")
            isPrimary: true
            enabled: !sheet.controller.isEnhancing
            onClicked: sheet.controller.enhance(sheet.mode, sheet.strength)
        }
    }
}
