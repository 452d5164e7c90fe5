import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: section
    spacing: Theme.medium
    required property EditorController controller
    readonly property var style: controller.style
    StyleSlider {
        Layout.fillWidth: true
        controller: section.controller
        field: "cornerRadius"
        enabled: section.style.frame === "none"
        opacity: enabled ? 1 : 0.4
        label: enabled ? qsTranslate("Kestrio", "Corner radius") : qsTranslate("Kestrio", "Corner radius (set by the frame)")
        unit: " pt"
    }
    Toggle {
        Layout.fillWidth: true
        text: qsTranslate("Kestrio", "Shadow")
        checked: section.style.shadow
        onToggled: section.controller.choose("shadow", checked)
    }
    Segments {
        Layout.fillWidth: true
        visible: section.style.shadow
        rows: section.controller.choices.shadowIntensity
        current: section.style.shadowIntensity
        onChosen: id => section.controller.choose("shadowIntensity", id)
    }
    Caption {
        visible: section.style.shadow
        text: qsTranslate("Kestrio", "Light from")
    }
    NineGrid {
        visible: section.style.shadow
        rows: section.controller.choices.light
        current: section.style.light
        onChosen: id => section.controller.choose("light", id)
    }
}
