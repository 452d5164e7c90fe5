import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// What can be done with one of the user's own themes.
Basic.Menu {
    id: menu
    required property ThemePanel panel
    required property var theme
    signal renameRequested(string id, string name)
    width: 230
    padding: 4
    background: Rectangle {
        radius: Theme.largeRadius
        color: Theme.surface
        border.color: Theme.hairline
    }

    MenuRow {
        text: qsTranslate("Kestrio", "Replace with the current style")
        onTriggered: menu.panel.overwrite(menu.theme.id)
    }
    MenuRow {
        text: qsTranslate("Kestrio", "Rename…")
        onTriggered: menu.renameRequested(menu.theme.id, menu.theme.name)
    }
    MenuRow {
        text: qsTranslate("Kestrio", "Delete")
        onTriggered: menu.panel.remove(menu.theme.id)
    }
}
