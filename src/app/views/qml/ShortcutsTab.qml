import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

SettingsPage {
    id: tab
    required property SettingsController controller
    Component.onDestruction: controller.stopRecording()

    Text {
        Layout.fillWidth: true
        text: qsTranslate("Kestrio", "Click a shortcut, then press a new key combination to change it. Must include at least ⌘, ⌃, or ⌥, but for Print, media and other keys that type nothing.")
        font.pixelSize: Theme.bodySize
        color: Theme.secondaryText
        wrapMode: Text.Wrap
    }
    SettingsCard {
        title: qsTranslate("Kestrio", "Global Shortcuts")
        Repeater {
            // Counted, so that a row stays while its values change.
            model: tab.controller.hotkeys.length
            ShortcutRow {
                required property int index
                controller: tab.controller
                row: tab.controller.hotkeys[index]
            }
        }
    }
    RowLayout {
        Layout.fillWidth: true
        Text {
            Layout.fillWidth: true
            text: qsTranslate("Kestrio", "⌃ Control   ⌥ Alt   ⇧ Shift   ⌘ Super")
            font.pixelSize: Theme.captionSize
            color: Theme.secondaryText
        }
        Chip {
            objectName: "restoreDefaults"
            text: qsTranslate("Kestrio", "Restore Defaults")
            onClicked: tab.controller.restoreDefaultHotkeys()
        }
    }
}
