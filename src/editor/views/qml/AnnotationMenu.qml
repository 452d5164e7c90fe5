import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// What can be done with the annotation under the pointer.
Basic.Menu {
    id: menu
    required property EditorController controller
    readonly property AnnotationPanel panel: controller.annotation
    readonly property CommandPanel commands: controller.commands
    width: 210
    padding: 4
    background: Rectangle {
        radius: Theme.largeRadius
        color: Theme.surface
        border.color: Theme.hairline
    }

    MenuRow {
        text: qsTranslate("Kestrio", "Bring to Front")
        key: menu.commands.key("bringToFront")
        onTriggered: menu.commands.run("bringToFront")
    }
    MenuRow {
        text: qsTranslate("Kestrio", "Send to Back")
        key: menu.commands.key("sendToBack")
        onTriggered: menu.commands.run("sendToBack")
    }
    MenuRow {
        text: qsTranslate("Kestrio", "Renumber from here")
        isShown: menu.panel.tool.isNumberSelected
        onTriggered: menu.panel.renumberFromHere()
    }
    MenuRow {
        text: qsTranslate("Kestrio", "Delete and Renumber")
        isShown: menu.panel.tool.isNumberSelected
        onTriggered: menu.panel.deleteAndRenumber()
    }
    MenuRow {
        text: qsTranslate("Kestrio", "Delete")
        key: menu.commands.key("delete")
        onTriggered: menu.commands.run("delete")
    }
}
