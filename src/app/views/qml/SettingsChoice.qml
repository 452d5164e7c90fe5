import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

// A list for one field of the settings.
RowLayout {
    id: row
    required property SettingsController controller
    required property string field
    property string label
    readonly property var choices: controller.choices[field]
    Layout.fillWidth: true

    Text {
        Layout.fillWidth: true
        text: row.label
        font.pixelSize: Theme.bodySize
        color: Theme.text
    }
    ChoiceBox {
        objectName: row.field
        Layout.preferredWidth: 200
        name: row.label
        choices: row.choices.map(choice => choice.name)
        current: (row.choices.find(choice => choice.id === row.controller.values[row.field]) ?? {name: ""}).name
        onChosen: name => row.controller.set(row.field, row.choices.find(choice => choice.name === name).id)
    }
}
