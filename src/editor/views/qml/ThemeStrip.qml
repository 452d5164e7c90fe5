import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor

// Built-in styles and the user's own as pictures of the document.
Rectangle {
    id: strip
    required property EditorController controller
    implicitHeight: 104
    color: Theme.surface

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.hairline
    }
    Flickable {
        id: view
        anchors.fill: parent
        anchors.leftMargin: Theme.large
        anchors.rightMargin: Theme.large
        contentWidth: tiles.width
        clip: true
        boundsBehavior: Flickable.StopAtBounds

        Row {
            id: tiles
            spacing: Theme.medium
            height: view.height
            Repeater {
                model: strip.controller.presets
                StyleTile {
                    required property var modelData
                    height: view.height
                    kind: "preset"
                    styleId: modelData.id
                    name: modelData.name
                    revision: strip.controller.thumbnailRevision
                    isCurrent: strip.controller.currentPreset === modelData.id
                    onClicked: strip.controller.applyPreset(modelData.id)
                }
            }
            Repeater {
                model: strip.controller.themes
                StyleTile {
                    required property var modelData
                    height: view.height
                    kind: "theme"
                    styleId: modelData.id
                    name: modelData.name
                    revision: strip.controller.thumbnailRevision
                    isCurrent: strip.controller.currentTheme === modelData.id
                    canDelete: true
                    onClicked: strip.controller.applyTheme(modelData.id)
                    onDeleteRequested: strip.controller.deleteTheme(modelData.id)
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
                    tip: qsTr("Keep this style as a theme")
                    onClicked: naming.open()
                }
                Text {
                    y: 79
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    text: qsTr("Save style")
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

    Basic.Popup {
        id: naming
        x: Math.max(Theme.small, (strip.width - width) / 2)
        y: -height - Theme.small
        width: 300
        padding: Theme.large
        modal: true
        focus: true
        onOpened: {
            field.text = ""
            field.forceActiveFocus()
        }
        background: Rectangle {
            radius: Theme.largeRadius
            color: Theme.surface
            border.color: Theme.hairline
        }
        function save() {
            strip.controller.saveTheme(field.text)
            close()
        }
        Column {
            width: parent.width
            spacing: Theme.medium
            TextBox {
                id: field
                width: parent.width
                placeholder: qsTr("Name of the theme")
                onAccepted: naming.save()
            }
            Row {
                anchors.right: parent.right
                spacing: Theme.small
                IconButton {
                    text: qsTr("Cancel")
                    onClicked: naming.close()
                }
                IconButton {
                    text: qsTr("Save")
                    isPrimary: true
                    enabled: field.text.trim() !== ""
                    onClicked: naming.save()
                }
            }
        }
    }
}
