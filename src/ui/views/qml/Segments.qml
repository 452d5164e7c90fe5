import QtQuick
import QtQuick.Controls.Basic as Basic

// A row of choices of which one holds.
Rectangle {
    id: segments

    property var rows: []
    property string current
    signal chosen(string id)

    implicitHeight: 30
    implicitWidth: 200
    radius: Theme.radius
    color: Theme.well

    Row {
        anchors.fill: parent
        anchors.margins: 2
        Repeater {
            model: segments.rows
            Basic.AbstractButton {
                id: segment
                required property var modelData
                readonly property bool isCurrent: modelData.id === segments.current
                width: (segments.width - 4) / segments.rows.length
                height: segments.height - 4
                focusPolicy: Qt.TabFocus
                Accessible.name: modelData.name
                onClicked: segments.chosen(modelData.id)
                contentItem: Text {
                    text: segment.modelData.name
                    font.pixelSize: Theme.captionSize
                    font.weight: segment.isCurrent ? Font.DemiBold : Font.Normal
                    color: Theme.text
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                }
                background: Rectangle {
                    radius: Theme.radius - 1
                    color: segment.isCurrent ? Theme.raised : segment.hovered ? Theme.hover : "transparent"
                    border.width: segment.visualFocus ? 2 : segment.isCurrent ? 1 : 0
                    border.color: segment.visualFocus ? Theme.accent : Theme.hairline
                }
            }
        }
    }
}
