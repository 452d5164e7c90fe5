import QtQml
import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// Where the finished picture can be handed to.
Basic.Menu {
    id: menu
    required property EditorController controller
    readonly property SharePanel panel: controller.share
    property var programs: []
    width: 280
    padding: 4
    background: Rectangle {
        radius: Theme.largeRadius
        color: Theme.surface
        border.color: Theme.hairline
    }
    onAboutToShow: programs = panel.programs()

    MenuRow {
        text: qsTranslate("Kestrio", "E-mail…")
        onTriggered: menu.panel.email()
    }
    MenuRow {
        objectName: "editor.share.copyFile"
        text: qsTranslate("Kestrio", "Copy File")
        onTriggered: menu.panel.copyFile()
    }
    Instantiator {
        model: menu.programs
        onObjectAdded: (index, row) => menu.addItem(row)
        onObjectRemoved: (index, row) => menu.removeItem(row)
        delegate: MenuRow {
            required property var modelData
            picture: modelData.icon
            text: qsTranslate("Kestrio", "Open with %1").arg(modelData.name)
            onTriggered: menu.panel.openWith(modelData.id)
        }
    }
}
