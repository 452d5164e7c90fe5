import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

Window {
    id: window
    required property SettingsController controller

    width: 600
    height: 460
    minimumWidth: 600
    maximumWidth: 600
    minimumHeight: 460
    maximumHeight: 660
    title: qsTranslate("Kestrio", "Kestrio Settings")
    color: Theme.ground
    // Its owner shows it once it is placed.
    visible: false
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Binding { target: Theme; property: "isDark"; value: window.controller.isDark }
    Binding { target: Theme; property: "isMotionReduced"; value: window.controller.isMotionReduced }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0
        SettingsTabs {
            Layout.fillWidth: true
            controller: window.controller
        }
        Loader {
            Layout.fillWidth: true
            Layout.fillHeight: true
            sourceComponent: ({
                general: generalTab, screenshots: screenshotsTab, shortcuts: shortcutsTab,
                privacy: privacyTab, about: aboutTab
            })[window.controller.tab]
        }
        SettingsMessage {
            Layout.fillWidth: true
            controller: window.controller
        }
    }
    Component { id: generalTab; GeneralTab { controller: window.controller } }
    Component { id: screenshotsTab; ScreenshotsTab { controller: window.controller } }
    Component { id: shortcutsTab; ShortcutsTab { controller: window.controller } }
    Component { id: privacyTab; PrivacyTab { controller: window.controller } }
    Component { id: aboutTab; AboutTab { controller: window.controller } }

    Loader {
        anchors.fill: parent
        // Stays once it was needed.
        active: window.controller.patterns.isSheetShown || item !== null
        sourceComponent: PatternSheet { panel: window.controller.patterns }
    }

    Shortcut { sequences: [StandardKey.Close]; onActivated: window.close() }
    Shortcut { sequence: "Esc"; enabled: !window.controller.patterns.isSheetShown; onActivated: window.close() }
}
