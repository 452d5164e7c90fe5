import QtQuick
import Kestrio.Editor

// Edits a text annotation where it stands. Escape and a click elsewhere keep what was typed.
Item {
    id: editor
    required property CanvasItem canvas
    visible: canvas.isEditingText
    x: canvas.textRect.x
    y: canvas.textRect.y
    width: Math.max(canvas.textRect.width, 40)
    height: Math.max(canvas.textRect.height, area.contentHeight)
    rotation: canvas.textRotation
    onVisibleChanged: {
        if (!visible) {
            if (area.activeFocus) canvas.forceActiveFocus()
            return
        }
        area.text = canvas.editedText
        area.forceActiveFocus()
        area.selectAll()
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: -3
        color: "transparent"
        border.color: Theme.accent
        border.width: 1.5
        radius: 3
    }
    TextEdit {
        id: area
        anchors.fill: parent
        font: editor.canvas.textFont
        color: editor.canvas.textColor
        wrapMode: TextEdit.Wrap
        selectByMouse: true
        Accessible.name: qsTr("Text")
        Keys.onEscapePressed: editor.canvas.commitText(text)
        Keys.onPressed: event => {
            if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
                    && (event.modifiers & Qt.ControlModifier)) {
                editor.canvas.commitText(text)
                event.accepted = true
            }
        }
        onActiveFocusChanged: if (!activeFocus && editor.visible) editor.canvas.commitText(text)
    }
}
