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
    title: qsTranslate("Kestrio", "Enhance the picture")
    sheetWidth: 540
    isBusy: controller.isEnhancing

    Segments {
        Layout.fillWidth: true
        rows: sheet.controller.choices.enhancement
        current: sheet.mode
        onChosen: id => sheet.mode = id
    }
    SliderRow {
        Layout.fillWidth: true
        enabled: sheet.mode !== "upscale"
        opacity: enabled ? 1 : 0.4
        label: qsTranslate("Kestrio", "Intensity")
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
            text: qsTranslate("Kestrio", "Restore original")
            enabled: sheet.controller.canRestore && !sheet.controller.isEnhancing
            onClicked: sheet.controller.restoreOriginal()
        }
        Item { Layout.fillWidth: true }
        IconButton {
            text: sheet.controller.isEnhancing ? qsTranslate("Kestrio", "Working…") : qsTranslate("Kestrio", "Enhance")
            isPrimary: true
            enabled: !sheet.controller.isEnhancing
            onClicked: sheet.controller.enhance(sheet.mode, sheet.strength)
        }
    }
}
