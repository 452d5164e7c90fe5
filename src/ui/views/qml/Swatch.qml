import QtQuick
import QtQuick.Controls.Basic as Basic

Basic.AbstractButton {
    id: swatch
    property color color
    property bool isCurrent: false
    implicitWidth: 20
    implicitHeight: 20
    focusPolicy: Qt.TabFocus
    Accessible.name: String(color)
    background: Rectangle {
        radius: width / 2
        color: swatch.color
        border.width: swatch.isCurrent || swatch.visualFocus ? 2 : 1
        border.color: swatch.isCurrent || swatch.visualFocus ? Theme.accent : Theme.hairline
        scale: swatch.hovered ? 1.12 : 1
        Behavior on scale { NumberAnimation { duration: Theme.motion } }
    }
}
