import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// Built-in styles and the user's own as pictures of the document.
Rectangle {
    id: strip
    required property EditorController controller
    readonly property ThemePanel panel: controller.themes
    signal saveRequested()
    signal renameRequested(string id, string name)
    implicitHeight: 104
    color: Theme.surface

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.hairline
    }
    Component {
        id: menu
        ThemeMenu {
            panel: strip.panel
            onRenameRequested: (id, name) => strip.renameRequested(id, name)
            onClosed: destroy()
        }
    }
    Flickable {
        id: view
        anchors.fill: parent
        anchors.leftMargin: Theme.large
        anchors.rightMargin: Theme.large
        contentWidth: tiles.width
        contentX: LayoutMirroring.enabled ? Math.max(0, contentWidth - width) : 0
        clip: true
        boundsBehavior: Flickable.StopAtBounds

        Row {
            id: tiles
            spacing: Theme.medium
            height: view.height
            Repeater {
                model: strip.panel.presets
                StyleTile {
                    controller: strip.controller
                    required property var modelData
                    height: view.height
                    kind: "preset"
                    styleId: modelData.id
                    name: modelData.name
                    revision: strip.controller.thumbnailRevision
                    isCurrent: strip.panel.currentPreset === modelData.id
                    onClicked: strip.panel.applyPreset(modelData.id)
                }
            }
            Repeater {
                model: strip.panel.themes
                StyleTile {
                    id: own
                    controller: strip.controller
                    required property var modelData
                    height: view.height
                    kind: "theme"
                    styleId: modelData.id
                    name: modelData.name
                    revision: strip.controller.thumbnailRevision
                    isCurrent: strip.panel.currentTheme === modelData.id
                    canDelete: true
                    onClicked: strip.panel.applyTheme(modelData.id)
                    onDeleteRequested: strip.panel.remove(modelData.id)
                    onMenuRequested: menu.createObject(own, { theme: modelData }).popup()
                }
            }
            Item {
                width: 104
                height: view.height
                IconButton {
                    y: 12
                    width: parent.width
                    height: 62
                    symbol: "plus"
                    tip: qsTranslate("Kestrio", "Keep this style as a theme")
                    onClicked: strip.saveRequested()
                }
                Text {
                    y: 79
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    text: qsTranslate("Kestrio", "Save style")
                    font.pixelSize: Theme.captionSize
                    color: Theme.secondaryText
                }
            }
        }
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            onWheel: event => view.contentX = Math.max(0, Math.min(view.contentWidth - view.width,
                view.contentX - event.angleDelta.y))
        }
    }
}
