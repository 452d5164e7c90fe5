import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor

// Built-in styles as pictures of the document.
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
    ListView {
        id: list
        anchors.fill: parent
        anchors.leftMargin: Theme.large
        anchors.rightMargin: Theme.large
        orientation: ListView.Horizontal
        spacing: Theme.medium
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: strip.controller.presets
        delegate: Basic.AbstractButton {
            id: tile
            required property var modelData
            readonly property bool isCurrent: strip.controller.currentPreset === modelData.id
            width: 104
            height: list.height
            focusPolicy: Qt.TabFocus
            Accessible.name: modelData.name
            onClicked: strip.controller.applyPreset(modelData.id)
            contentItem: Item {
                Rectangle {
                    id: frame
                    y: 12
                    width: parent.width
                    height: 62
                    radius: Theme.radius
                    color: tile.hovered ? Theme.hover : "transparent"
                    border.width: tile.isCurrent || tile.visualFocus ? 2 : 1
                    border.color: tile.isCurrent || tile.visualFocus ? Theme.accent : Theme.hairline
                    Image {
                        anchors.fill: parent
                        anchors.margins: tile.isCurrent ? 3 : 2
                        source: "image://thumbnail/preset/" + tile.modelData.id + "?"
                            + strip.controller.thumbnailRevision
                        sourceSize: Qt.size(200, 120)
                        fillMode: Image.PreserveAspectCrop
                        cache: false
                    }
                }
                Text {
                    anchors.top: frame.bottom
                    anchors.topMargin: 5
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    text: tile.modelData.name
                    elide: Text.ElideRight
                    font.pixelSize: Theme.captionSize
                    color: tile.isCurrent ? Theme.text : Theme.secondaryText
                    font.weight: tile.isCurrent ? Font.DemiBold : Font.Normal
                }
            }
            background: Item {}
        }
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            onWheel: event => list.contentX = Math.max(0, Math.min(list.contentWidth - list.width,
                list.contentX - event.angleDelta.y))
        }
    }
}
