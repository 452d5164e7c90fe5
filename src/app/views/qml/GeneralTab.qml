import QtQuick
import Kestrio.App
import Kestrio.Ui

SettingsPage {
    id: tab
    required property SettingsController controller

    SettingsCard {
        SettingsSwitch {
            controller: tab.controller
            field: "launchAtLogin"
            label: qsTr("Launch at login")
        }
        SettingsChoice {
            controller: tab.controller
            field: "appLanguage"
            label: qsTr("Language")
        }
    }
    SettingsCard {
        title: qsTr("Saving")
        SavePathRow { controller: tab.controller }
        SettingsChoice {
            controller: tab.controller
            field: "defaultExportFormat"
            label: qsTr("Format")
        }
        NamingRow { controller: tab.controller }
    }
}
