import QtQuick
import Kestrio.App
import Kestrio.Ui

SettingsPage {
    id: tab
    required property SettingsController controller

    SettingsCard {
        SettingsSwitch {
            field: tab.controller.fields.launchAtLogin
            label: qsTranslate("Kestrio", "Launch at login")
        }
        SettingsChoice {
            field: tab.controller.fields.appLanguage
            label: qsTranslate("Kestrio", "Language")
        }
    }
    SettingsCard {
        title: qsTranslate("Kestrio", "Saving")
        SavePathRow { controller: tab.controller }
        SettingsChoice {
            field: tab.controller.fields.defaultExportFormat
            label: qsTranslate("Kestrio", "Format")
        }
        NamingRow { controller: tab.controller }
    }
}
