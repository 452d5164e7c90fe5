import QtQuick
import QtQuick.Controls.Basic as Basic

// The tooltip of a control, with the key that does the same.
Basic.ToolTip {
    id: tip
    property string key
    property bool isWanted: false
    property string words
    visible: isWanted && words !== ""
    delay: 500
    text: key ? words + "   " + key : words
    padding: 6
    leftPadding: 9
    rightPadding: 9
    contentItem: Text {
        text: tip.text
        font.pixelSize: Theme.captionSize
        color: Theme.isDark ? Theme.text : "#ffffff"
    }
    background: Rectangle {
        radius: Theme.radius
        color: Theme.isDark ? "#47474f" : "#e61d1d1f"
    }
}
