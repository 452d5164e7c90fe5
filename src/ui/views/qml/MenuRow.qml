import QtQuick
import QtQuick.Controls.Basic as Basic

Basic.MenuItem {
    id: row
    property string key
    property bool isShown: true
    property string picture  // a URL; none where empty
    visible: isShown
    height: isShown ? 30 : 0
    contentItem: Item {
        // It knows what keys are called in the user's language.
        Shortcut { id: keys; enabled: false; sequence: row.key }
        Text {
            anchors.left: parent.left
            anchors.leftMargin: row.picture === "" ? 6 : 30
            anchors.right: hotkey.left
            anchors.verticalCenter: parent.verticalCenter
            text: row.text
            elide: Text.ElideRight
            font.pixelSize: Theme.bodySize
            color: row.highlighted ? Theme.accentText : Theme.text
        }
        Image {
            x: 6
            width: 16
            height: 16
            anchors.verticalCenter: parent.verticalCenter
            source: row.picture
        }
        Text {
            id: hotkey
            anchors.right: parent.right
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            text: keys.nativeText
            font.pixelSize: Theme.captionSize
            color: row.highlighted ? Theme.accentText : Theme.secondaryText
        }
    }
    background: Rectangle {
        radius: Theme.radius
        color: row.highlighted ? Theme.accent : "transparent"
    }
}
