import QtQuick
import QtQuick.Controls.Basic as Basic

// A square button with an icon, a tooltip and the key that does the same.
Basic.AbstractButton {
    id: button

    property string symbol
    property string tip
    property string key
    property bool isPrimary: false
    property color symbolColor: isPrimary || checked ? Theme.accentText : Theme.text

    implicitHeight: 34
    implicitWidth: Math.max(34, label.implicitWidth + (text ? 24 : 0))
    focusPolicy: Qt.TabFocus
    opacity: enabled ? 1 : 0.38
    Accessible.name: text || tip
    Accessible.role: Accessible.Button

    contentItem: Item {
        Row {
            id: label
            anchors.centerIn: parent
            spacing: 6
            Symbol {
                name: button.symbol
                visible: button.symbol !== ""
                anchors.verticalCenter: parent.verticalCenter
                color: button.symbolColor
            }
            Text {
                visible: button.text !== ""
                text: button.text
                font.pixelSize: Theme.bodySize
                font.weight: Font.Medium
                anchors.verticalCenter: parent.verticalCenter
                color: button.symbolColor
            }
        }
    }
    background: Rectangle {
        radius: Theme.radius
        color: button.isPrimary || button.checked
            ? Qt.darker(Theme.accent, button.pressed ? 1.2 : button.hovered ? 1.08 : 1)
            : button.pressed ? Theme.pressed : button.hovered ? Theme.hover : "transparent"
        border.width: button.visualFocus ? 2 : 0
        border.color: button.isPrimary || button.checked ? Theme.text : Theme.accent
    }
    Hint { isWanted: button.hovered; words: button.tip; key: button.key }
}
