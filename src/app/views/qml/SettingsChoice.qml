import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

// A list for one field of the settings.
RowLayout {
    id: row
    required property SettingsSelection field
    property string label
    readonly property var choices: field.choices
    Layout.fillWidth: true

    Text {
        Layout.fillWidth: true
        text: row.label
        font.pixelSize: Theme.bodySize
        color: Theme.text
    }
    ChoiceBox {
        objectName: row.field.objectName
        Layout.preferredWidth: 200
        name: row.label
        choices: row.choices.map(choice => choice.name)
        current: (row.choices.find(choice => choice.id === row.field.value) ?? {name: ""}).name
        onChosen: name => row.field.value = row.choices.find(choice => choice.name === name).id
    }
}
