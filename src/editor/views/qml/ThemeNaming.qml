import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

Sheet {
    id: sheet
    required property EditorController controller
    // The theme that gets another name; empty for a new one.
    property string themeId
    property string oldName
    readonly property ThemePanel themes: controller.themes
    readonly property bool isTaken: isShown && themes.isNameTaken(field.text, themeId)
    title: themeId ? qsTranslate("Kestrio", "Rename theme") : qsTranslate("Kestrio", "Enter theme name")
    sheetWidth: 380
    onIsShownChanged: {
        if (!isShown) return
        field.text = oldName
        field.forceActiveFocus()
        field.selectAll()
    }
    function save() {
        if (!keep.enabled) return
        if (themeId) themes.rename(themeId, field.text)
        else themes.save(field.text)
        close()
    }

    Text {
        Layout.fillWidth: true
        wrapMode: Text.Wrap
        visible: sheet.themeId === ""
        text: qsTranslate("Kestrio", "Save your current backdrop, frame, and mockup settings as a reusable theme.")
        font.pixelSize: Theme.bodySize
        color: Theme.secondaryText
    }
    TextBox {
        id: field
        Layout.fillWidth: true
        placeholder: qsTranslate("Kestrio", "Name of the theme")
        onAccepted: sheet.save()
        Keys.onEscapePressed: sheet.close()
    }
    Text {
        Layout.fillWidth: true
        visible: sheet.isTaken
        wrapMode: Text.Wrap
        text: sheet.themeId ? qsTranslate("Kestrio", "A theme with this name already exists")
                            : qsTranslate("Kestrio", "A theme with this name already exists and will be replaced")
        font.pixelSize: Theme.captionSize
        color: Theme.danger
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small
        Item { Layout.fillWidth: true }
        IconButton {
            text: qsTranslate("Kestrio", "Cancel")
            key: "Esc"
            onClicked: sheet.close()
        }
        IconButton {
            id: keep
            text: sheet.themeId ? qsTranslate("Kestrio", "Rename") : sheet.isTaken ? qsTranslate("Kestrio", "Replace") : qsTranslate("Kestrio", "Save")
            isPrimary: true
            enabled: field.text.trim() !== "" && !(sheet.themeId && sheet.isTaken)
            onClicked: sheet.save()
        }
    }
}
