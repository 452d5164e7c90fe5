import QtQuick
import QtQuick.Controls.Basic as Basic

// A small choice with a text.
Basic.AbstractButton {
    id: chip
    property bool isCurrent: false
    // Whole pixels at scale factors of 1.25 and 1.5 too, radius included: others show seams.
    implicitHeight: 24
    implicitWidth: label.implicitWidth + 18
    focusPolicy: Qt.TabFocus
    Accessible.name: text
    contentItem: Text {
        id: label
        text: chip.text
        font.pixelSize: Theme.captionSize
        color: chip.isCurrent ? Theme.accentText : Theme.text
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        radius: height / 2
        color: chip.isCurrent ? Theme.accent : chip.hovered ? Theme.pressed : Theme.hover
        border.width: chip.visualFocus ? 2 : 0
        border.color: Theme.accent
    }
}
