import QtQuick
import QtQuick.Controls.Basic as Basic

Basic.MenuItem {
    id: row
    property string key
    property bool isShown: true
    visible: isShown
    height: isShown ? 30 : 0
    contentItem: Item {
        Text {
            anchors.left: parent.left
            anchors.leftMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            text: row.text
            font.pixelSize: Theme.bodySize
            color: row.highlighted ? Theme.accentText : Theme.text
        }
        Text {
            anchors.right: parent.right
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            text: row.key
            font.pixelSize: Theme.captionSize
            color: row.highlighted ? Theme.accentText : Theme.secondaryText
        }
    }
    background: Rectangle {
        radius: Theme.radius
        color: row.highlighted ? Theme.accent : "transparent"
    }
}
