import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// A whole style as a picture of the document, with its name.
Basic.AbstractButton {
    id: tile
    required property EditorController controller
    property string kind
    property string styleId
    property string name
    property bool isCurrent: false
    property bool canDelete: false
    property int revision: 0
    signal deleteRequested()
    signal menuRequested()

    implicitWidth: 104
    focusPolicy: Qt.TabFocus
    Accessible.name: name
    background: Item {}
    Keys.onMenuPressed: if (canDelete) menuRequested()
    TapHandler {
        enabled: tile.canDelete
        acceptedButtons: Qt.RightButton
        onTapped: tile.menuRequested()
    }
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
                source: tile.controller.thumbnails + tile.kind + "/" + tile.styleId + "?" + tile.revision
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
            text: tile.name
            elide: Text.ElideRight
            font.pixelSize: Theme.captionSize
            color: tile.isCurrent ? Theme.text : Theme.secondaryText
            font.weight: tile.isCurrent ? Font.DemiBold : Font.Normal
        }
        Rectangle {
            visible: tile.canDelete && (tile.hovered || remover.hovered)
            anchors.right: frame.right
            anchors.top: frame.top
            anchors.margins: -4
            width: 20
            height: 20
            radius: 10
            color: Theme.surface
            border.color: Theme.hairline
            Basic.AbstractButton {
                id: remover
                anchors.fill: parent
                Accessible.name: qsTranslate("Kestrio", "Delete this theme")
                onClicked: tile.deleteRequested()
                contentItem: Symbol { name: "xmark"; size: 12; color: Theme.text }
                leftPadding: 4
                topPadding: 4
            }
        }
    }
}
