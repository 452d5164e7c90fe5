import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

SettingsPage {
    id: tab
    required property SettingsController controller

    SettingsCard {
        title: qsTranslate("Kestrio", "Selecting a region")
        SettingsSwitch {
            field: tab.controller.fields.confirmBeforeEditing
            label: qsTranslate("Kestrio", "Confirm before editing")
            explanation: qsTranslate("Kestrio", "Adjust the selection, then edit, copy, save or pin it. Otherwise the editor opens at once.")
        }
        SettingsSwitch {
            field: tab.controller.fields.snapToWindowInRegionCapture
            label: qsTranslate("Kestrio", "Snap to windows")
        }
        SettingsSwitch {
            field: tab.controller.fields.showMagnifierInRegionCapture
            label: qsTranslate("Kestrio", "Show the magnifier")
        }
    }
    SettingsCard {
        title: qsTranslate("Kestrio", "Scrolling capture")
        SettingsChoice {
            field: tab.controller.fields.scrollingCaptureMode
            label: qsTranslate("Kestrio", "Mode")
        }
    }
    SettingsCard {
        title: qsTranslate("Kestrio", "After the capture")
        SettingsSwitch {
            field: tab.controller.fields.autoCopyToClipboard
            label: qsTranslate("Kestrio", "Copy to the clipboard automatically")
        }
    }
    SettingsCard {
        visible: tab.controller.themes.length > 0
        title: qsTranslate("Kestrio", "Saved presets")
        Repeater {
            model: tab.controller.themes
            RowLayout {
                id: preset
                required property var modelData
                Layout.fillWidth: true
                Text {
                    Layout.fillWidth: true
                    text: preset.modelData.name
                    font.pixelSize: Theme.bodySize
                    color: Theme.text
                    elide: Text.ElideRight
                }
                IconButton {
                    symbol: "trash"
                    tip: qsTranslate("Kestrio", "Delete this preset")
                    implicitWidth: 28
                    implicitHeight: 28
                    onClicked: tab.controller.deleteTheme(preset.modelData.id)
                }
            }
        }
    }
}
