import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Ui

// Text to select and copy from.
Basic.TextArea {
    id: area
    property string name
    readOnly: true
    selectByMouse: true
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap
    font.pixelSize: Theme.bodySize
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    padding: 10
    Accessible.name: name
    background: Rectangle {
        radius: Theme.radius
        color: Theme.raised
        border.width: area.activeFocus ? 2 : 1
        border.color: area.activeFocus ? Theme.accent : Theme.hairline
    }
}
