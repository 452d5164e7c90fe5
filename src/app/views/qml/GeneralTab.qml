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
            label: qsTranslate("Kestrio", "Launch at login")
        }
        SettingsChoice {
            controller: tab.controller
            field: "appLanguage"
            label: qsTranslate("Kestrio", "Language")
        }
    }
    SettingsCard {
        title: qsTranslate("Kestrio", "Saving")
        SavePathRow { controller: tab.controller }
        SettingsChoice {
            controller: tab.controller
            field: "defaultExportFormat"
            label: qsTranslate("Kestrio", "Format")
        }
        NamingRow { controller: tab.controller }
    }
}
