import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

// The pattern of file names, with the name that it makes now.
ColumnLayout {
    id: row
    required property SettingsController controller
    readonly property SettingsText pattern: controller.fields.fileNamingPattern
    Layout.fillWidth: true
    spacing: Theme.tiny

    RowLayout {
        Layout.fillWidth: true
        Text {
            Layout.fillWidth: true
            text: qsTranslate("Kestrio", "File names")
            font.pixelSize: Theme.bodySize
            color: Theme.text
        }
        TextBox {
            objectName: "fileNamingPattern"
            Layout.preferredWidth: 260
            text: row.pattern.value
            Accessible.name: qsTranslate("Kestrio", "File names")
            onEdited: text => row.pattern.value = text
        }
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: 6
        Repeater {
            model: row.controller.namingVariables
            Chip {
                required property var modelData
                text: modelData.id
                onClicked: row.pattern.value += modelData.id
                Hint { isWanted: parent.hovered; words: parent.modelData.name }
            }
        }
        Text {
            Layout.fillWidth: true
            text: row.controller.exampleName
            font.pixelSize: Theme.captionSize
            color: Theme.secondaryText
            horizontalAlignment: Text.AlignRight
            elide: Text.ElideMiddle
        }
    }
}
