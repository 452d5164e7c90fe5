import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

SettingsPage {
    id: tab
    required property SettingsController controller

    SettingsCard {
        title: qsTr("Selecting a region")
        SettingsSwitch {
            controller: tab.controller
            field: "confirmBeforeEditing"
            label: qsTr("Confirm before editing")
            explanation: qsTr("Adjust the selection, then edit, copy, save or pin it. Otherwise the editor opens at once.")
        }
        SettingsSwitch {
            controller: tab.controller
            field: "snapToWindowInRegionCapture"
            label: qsTr("Snap to windows")
        }
        SettingsSwitch {
            controller: tab.controller
            field: "showMagnifierInRegionCapture"
            label: qsTr("Show the magnifier")
        }
    }
    SettingsCard {
        title: qsTr("After the capture")
        SettingsSwitch {
            controller: tab.controller
            field: "autoCopyToClipboard"
            label: qsTr("Copy to the clipboard automatically")
        }
    }
    SettingsCard {
        visible: tab.controller.themes.length > 0
        title: qsTr("Saved presets")
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
                    tip: qsTr("Delete this preset")
                    implicitWidth: 28
                    implicitHeight: 28
                    onClicked: tab.controller.deleteTheme(preset.modelData.id)
                }
            }
        }
    }
}
