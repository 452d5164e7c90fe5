import QtQuick
import QtQuick.Controls.Basic as Basic

Basic.TextField {
    id: box
    property alias placeholder: box.placeholderText
    signal edited(string text)
    implicitHeight: 30
    font.pixelSize: Theme.bodySize
    color: Theme.text
    placeholderTextColor: Theme.secondaryText
    selectByMouse: true
    onTextEdited: edited(text)
    background: Rectangle {
        radius: Theme.radius
        color: Theme.raised
        border.width: box.activeFocus ? 2 : 1
        border.color: box.activeFocus ? Theme.accent : Theme.hairline
    }
}
