import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

SettingsPage {
    id: tab
    required property SettingsController controller

    SettingsCard {
        title: qsTranslate("Kestrio", "Screen recording")
        RowLayout {
            Layout.fillWidth: true
            Layout.preferredHeight: 32
            spacing: Theme.small
            Symbol {
                name: tab.controller.isScreenReadable ? "checkmark" : "xmark"
                color: tab.controller.isScreenReadable ? Theme.success : Theme.danger
            }
            Text {
                Layout.fillWidth: true
                text: tab.controller.isScreenReadable ? qsTranslate("Kestrio", "Kestrio can capture the screen.")
                    : qsTranslate("Kestrio", "Kestrio cannot capture the screen.")
                font.pixelSize: Theme.bodySize
                color: Theme.text
            }
            Chip {
                text: qsTranslate("Kestrio", "Check Again")
                onClicked: tab.controller.refreshPermission()
            }
            Chip {
                visible: !tab.controller.isScreenReadable && tab.controller.screenObstacle === ""
                text: tab.controller.openSettingsText
                onClicked: tab.controller.openScreenSettings()
            }
        }
        Text {
            Layout.fillWidth: true
            Layout.bottomMargin: Theme.tiny
            visible: text !== ""
            text: tab.controller.screenObstacle
            font.pixelSize: Theme.captionSize
            color: Theme.secondaryText
            wrapMode: Text.Wrap
        }
    }
    SettingsCard {
        title: qsTranslate("Kestrio", "Sensitive information")
        SettingsSwitch {
            field: tab.controller.fields.autoRedactOnCapture
            label: qsTranslate("Kestrio", "Auto-blur sensitive info")
            explanation: tab.controller.readingObstacle !== "" ? tab.controller.readingObstacle
                : qsTranslate("Kestrio", "Looks for it in every picture that opens in the editor and covers it. Look at the result: not everything is recognised, and text under a blur can be reconstructed.")
        }
    }
    PatternCards { panel: tab.controller.patterns }
    SettingsCard {
        title: qsTranslate("Kestrio", "Your pictures")
        Text {
            Layout.fillWidth: true
            Layout.topMargin: Theme.tiny
            Layout.bottomMargin: Theme.tiny
            text: qsTranslate("Kestrio", "Everything is captured, edited and saved on this computer. Kestrio sends no pictures anywhere.")
            font.pixelSize: Theme.bodySize
            color: Theme.text
            wrapMode: Text.Wrap
        }
    }
}
