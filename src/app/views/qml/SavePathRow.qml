import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

// The folder of quick saves.
RowLayout {
    id: row
    required property SettingsController controller
    Layout.fillWidth: true
    spacing: Theme.medium

    Text {
        text: qsTranslate("Kestrio", "Save to")
        font.pixelSize: Theme.bodySize
        color: Theme.text
    }
    Text {
        Layout.fillWidth: true
        text: row.controller.fields.defaultSavePath.value
        font.pixelSize: Theme.bodySize
        color: Theme.secondaryText
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideMiddle
    }
    Chip {
        objectName: "chooseSavePath"
        text: qsTranslate("Kestrio", "Choose…")
        onClicked: row.controller.chooseSavePath()
    }
}
