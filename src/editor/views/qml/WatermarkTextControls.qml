import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

ColumnLayout {
    id: controls
    required property EditorController controller
    spacing: Theme.medium

    TextBox {
        Layout.fillWidth: true
        text: controls.controller.style.watermarkText
        placeholder: qsTranslate("Kestrio", "Text of the watermark")
        onEdited: text => controls.controller.set("watermarkText", text)
    }
    ChoiceBox {
        Layout.fillWidth: true
        name: qsTranslate("Kestrio", "Font")
        choices: controls.controller.watermark.fonts
        current: controls.controller.style.watermarkFont
        onChosen: choice => controls.controller.set("watermarkFont", choice)
    }
    ColorRow {
        Layout.fillWidth: true
        picking: controls.controller.colors
        label: qsTranslate("Kestrio", "Colour")
        color: controls.controller.style.watermarkColor
        onMoved: color => controls.controller.set("watermarkColor", color)
        onPicked: color => controls.controller.set("watermarkColor", color)
    }
}
