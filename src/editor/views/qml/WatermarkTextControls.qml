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
        text: controls.controller.style.watermarkText.value
        placeholder: qsTranslate("Kestrio", "Text of the watermark")
        onEdited: text => controls.controller.style.watermarkText.value = text
    }
    ChoiceBox {
        Layout.fillWidth: true
        name: qsTranslate("Kestrio", "Font")
        choices: controls.controller.watermark.fonts
        current: controls.controller.style.watermarkFont.value
        onChosen: choice => controls.controller.style.watermarkFont.value = choice
    }
    ColorRow {
        Layout.fillWidth: true
        picking: controls.controller.colors
        label: qsTranslate("Kestrio", "Colour")
        color: controls.controller.style.watermarkColor.value
        onMoved: color => controls.controller.style.watermarkColor.value = color
        onPicked: color => controls.controller.style.watermarkColor.value = color
    }
}
