import QtQuick
import Kestrio.Editor

// Edits a text annotation where it stands. The annotation has what is typed at once; Escape, a click
// elsewhere and every other command end the typing.
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
        onTextChanged: if (editor.visible) editor.canvas.setEditedText(text)
        Keys.onEscapePressed: editor.canvas.endTextEditing()
        Keys.onPressed: event => {
            if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
                    && (event.modifiers & Qt.ControlModifier)) {
                editor.canvas.endTextEditing()
                event.accepted = true
            }
        }
        onActiveFocusChanged: if (!activeFocus && editor.visible) editor.canvas.endTextEditing()
    }
}
