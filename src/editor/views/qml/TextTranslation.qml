import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Into which language the text is translated, and how far that is.
Rectangle {
    id: footer
    required property TextPanel panel
    color: Theme.surface
    implicitHeight: column.implicitHeight + 24

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.hairline
    }
    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.margins: Theme.medium
        spacing: Theme.small

        Caption {
            objectName: "ocr.translation.status"
            Layout.fillWidth: true
            text: footer.panel.status
            Accessible.role: Accessible.StatusBar
            Accessible.name: text
        }
        ChoiceBox {
            objectName: "ocr.translation.targetLanguage"
            Layout.fillWidth: true
            visible: footer.panel.canTranslate
            name: qsTranslate("Kestrio", "Target language")
            choices: footer.panel.languages
            current: footer.panel.language
            displayText: current !== "" ? current : qsTranslate("Kestrio", "Choose a target language")
            onChosen: name => footer.panel.chooseLanguage(name)
        }
        RowLayout {
            visible: footer.panel.canTranslate
            Layout.fillWidth: true
            spacing: Theme.small
            IconButton {
                objectName: "ocr.translation.translateAll"
                Layout.fillWidth: true
                text: footer.panel.isTranslating ? qsTranslate("Kestrio", "Cancel") : qsTranslate("Kestrio", "Translate All")
                isPrimary: !footer.panel.isTranslating
                enabled: footer.panel.hasResults
                onClicked: footer.panel.isTranslating ? footer.panel.cancelTranslation() : footer.panel.translateAll()
            }
            IconButton {
                objectName: "ocr.translation.copyAll"
                symbol: "doc.on.doc"
                tip: qsTranslate("Kestrio", "Copy all translations")
                enabled: footer.panel.fullTranslation !== ""
                onClicked: footer.panel.copyAllTranslations()
            }
        }
    }
}
