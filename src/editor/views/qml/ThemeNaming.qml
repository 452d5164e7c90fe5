import QtQuick
import QtQuick.Layouts
import Kestrio.Editor

Sheet {
    id: sheet
    required property EditorController controller
    title: qsTr("Enter theme name")
    sheetWidth: 380
    onIsShownChanged: {
        if (!isShown) return
        field.text = ""
        field.forceActiveFocus()
    }
    function save() {
        if (!keep.enabled) return
        controller.themes.save(field.text)
        close()
    }

    Text {
        Layout.fillWidth: true
        wrapMode: Text.Wrap
        text: qsTr("Save your current backdrop, frame, and mockup settings as a reusable theme.")
        font.pixelSize: Theme.bodySize
        color: Theme.secondaryText
    }
    TextBox {
        id: field
        Layout.fillWidth: true
        placeholder: qsTr("Name of the theme")
        onAccepted: sheet.save()
        Keys.onEscapePressed: sheet.close()
    }
    Text {
        id: problem
        Layout.fillWidth: true
        visible: text !== ""
        text: sheet.isShown ? sheet.controller.themes.nameProblem(field.text) : ""
        font.pixelSize: Theme.captionSize
        color: Theme.danger
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small
        Item { Layout.fillWidth: true }
        IconButton {
            text: qsTr("Cancel")
            key: "Esc"
            onClicked: sheet.close()
        }
        IconButton {
            id: keep
            text: qsTr("Save")
            isPrimary: true
            enabled: field.text.trim() !== "" && problem.text === ""
            onClicked: sheet.save()
        }
    }
}
