import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// What can be done with the text under the pointer.
Basic.Menu {
    id: menu
    required property TextPanel panel
    required property int block
    signal copyRequested(int block)
    width: 210
    padding: 4
    background: Rectangle {
        radius: Theme.largeRadius
        color: Theme.surface
        border.color: Theme.hairline
    }

    MenuRow {
        text: qsTranslate("Kestrio", "Copy")
        onTriggered: menu.copyRequested(menu.block)
    }
    MenuRow {
        text: qsTranslate("Kestrio", "Copy All")
        onTriggered: menu.panel.copyAll()
    }
    MenuRow {
        text: qsTranslate("Kestrio", "Show Results")
        onTriggered: menu.panel.isShown = true
    }
    MenuRow {
        text: qsTranslate("Kestrio", "Clear")
        onTriggered: menu.panel.clear()
    }
}
