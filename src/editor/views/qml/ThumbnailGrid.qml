import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// Choices as pictures of themselves. Placed by hand: a positioner's own width would follow its
// tiles, which follow its width.
Item {
    id: grid

    required property EditorController controller
    property string kind
    property var rows: []
    property string current
    property int revision: 0
    property int tileHeight: 44
    signal chosen(string id)

    property int columns: 4
    readonly property int shownColumns: Math.max(2, columns
        - (controller.panelMode === "full" ? 0 : controller.panelMode === "compact" ? 1 : 2))
    readonly property int spacing: 6
    readonly property int rowCount: Math.ceil(rows.length / shownColumns)
    implicitHeight: Math.max(0, rowCount * (tileHeight + spacing) - spacing)
    readonly property real tileWidth: (width - (shownColumns - 1) * spacing) / shownColumns

    Repeater {
        model: grid.rows
        Basic.AbstractButton {
            id: tile
            required property var modelData
            required property int index
            readonly property bool isCurrent: modelData.id === grid.current
            x: (index % grid.shownColumns) * (grid.tileWidth + grid.spacing)
            y: Math.floor(index / grid.shownColumns) * (grid.tileHeight + grid.spacing)
            width: grid.tileWidth
            height: grid.tileHeight
            focusPolicy: Qt.TabFocus
            Accessible.name: modelData.spoken ?? modelData.name
            onClicked: grid.chosen(modelData.id)
            Hint { isWanted: tile.hovered; words: tile.modelData.name }
            contentItem: Item {}
            background: Rectangle {
                radius: Theme.radius
                color: "transparent"
                border.width: tile.isCurrent || tile.visualFocus ? 2 : 1
                border.color: tile.isCurrent || tile.visualFocus ? Theme.accent : Theme.hairline
                Image {
                    anchors.fill: parent
                    anchors.margins: tile.isCurrent ? 3 : 2
                    source: grid.controller.thumbnails + grid.kind + "/" + tile.modelData.id + "?" + grid.revision
                    sourceSize: Qt.size(width * 2, height * 2)
                    fillMode: Image.PreserveAspectCrop
                    cache: false
                }
            }
        }
    }
}
