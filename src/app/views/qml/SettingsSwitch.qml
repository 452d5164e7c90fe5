import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

// A switch for one field of the settings, with a line below that says more.
ColumnLayout {
    id: row
    required property SettingsFlag field
    property string label
    property string explanation
    Layout.fillWidth: true
    spacing: 0

    Toggle {
        Layout.fillWidth: true
        objectName: row.field.objectName
        text: row.label
        checked: row.field.value
        onToggled: {
            row.field.value = checked
            checked = Qt.binding(() => row.field.value)
        }
    }
    Text {
        Layout.fillWidth: true
        Layout.rightMargin: 56
        visible: row.explanation !== ""
        text: row.explanation
        font.pixelSize: Theme.captionSize
        color: Theme.secondaryText
        wrapMode: Text.Wrap
    }
}
