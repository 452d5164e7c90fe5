import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: section
    spacing: Theme.medium
    required property EditorController controller
    readonly property StyleFields style: controller.style
    StyleSlider {
        Layout.fillWidth: true
        field: section.style.cornerRadius
        enabled: section.style.frame.value === "none"
        opacity: enabled ? 1 : 0.4
        label: enabled ? qsTranslate("Kestrio", "Corner radius") : qsTranslate("Kestrio", "Corner radius (set by the frame)")
        unit: " pt"
    }
    Toggle {
        Layout.fillWidth: true
        text: qsTranslate("Kestrio", "Shadow")
        checked: section.style.shadow.value
        onToggled: section.style.shadow.choose(checked)
    }
    Segments {
        Layout.fillWidth: true
        visible: section.style.shadow.value
        rows: section.controller.choices.shadowIntensity
        current: section.style.shadowIntensity.value
        onChosen: id => section.style.shadowIntensity.choose(id)
    }
    Caption {
        visible: section.style.shadow.value
        text: qsTranslate("Kestrio", "Light from")
    }
    NineGrid {
        visible: section.style.shadow.value
        rows: section.controller.choices.light
        current: section.style.light.value
        onChosen: id => section.style.light.choose(id)
    }
}
