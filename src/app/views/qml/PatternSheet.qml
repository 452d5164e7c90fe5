import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

// A pattern of the user's own is made or changed here.
Sheet {
    id: sheet
    required property PatternPanel panel
    objectName: "pattern.sheet"
    isShown: panel.isSheetShown
    title: panel.sheetTitle
    sheetWidth: 460
    onClosed: {
        panel.closeSheet()
        isShown = Qt.binding(() => panel.isSheetShown)
    }
    onIsShownChanged: if (isShown) nameBox.forceActiveFocus()

    Caption { text: qsTranslate("Kestrio", "Pattern Name") }
    TextBox {
        id: nameBox
        objectName: "pattern.name"
        Layout.fillWidth: true
        text: sheet.panel.name
        Accessible.name: qsTranslate("Kestrio", "Pattern Name")
        onEdited: text => sheet.panel.name = text
        onAccepted: if (sheet.panel.canSave) sheet.panel.save()
    }
    Caption { text: qsTranslate("Kestrio", "Regex Pattern") }
    TextBox {
        objectName: "pattern.regex"
        Layout.fillWidth: true
        text: sheet.panel.regex
        font.family: "monospace"
        Accessible.name: qsTranslate("Kestrio", "Regex Pattern")
        onEdited: text => sheet.panel.regex = text
        onAccepted: if (sheet.panel.canSave) sheet.panel.save()
    }
    Text {
        objectName: "pattern.validity"
        Layout.fillWidth: true
        text: sheet.panel.validityText
        font.pixelSize: Theme.captionSize
        color: sheet.panel.isValid ? Theme.success : Theme.danger
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Caption { text: qsTranslate("Kestrio", "Description") }
    TextBox {
        objectName: "pattern.description"
        Layout.fillWidth: true
        text: sheet.panel.description
        Accessible.name: qsTranslate("Kestrio", "Description")
        onEdited: text => sheet.panel.description = text
        onAccepted: if (sheet.panel.canSave) sheet.panel.save()
    }
    Text {
        Layout.fillWidth: true
        visible: text !== ""
        text: sheet.panel.error
        font.pixelSize: Theme.captionSize
        color: Theme.danger
        wrapMode: Text.Wrap
    }
    RowLayout {
        Layout.alignment: Qt.AlignRight
        spacing: Theme.small
        IconButton {
            text: qsTranslate("Kestrio", "Cancel")
            onClicked: sheet.close()
        }
        IconButton {
            objectName: "pattern.save"
            text: qsTranslate("Kestrio", "Save")
            isPrimary: true
            enabled: sheet.panel.name.trim() !== ""
            onClicked: sheet.panel.save()
        }
    }
}
