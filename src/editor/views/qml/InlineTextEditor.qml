import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// Edits a text annotation where it stands. The annotation has what is typed at once; Escape, a click
// elsewhere and every other command end the typing. Laid out in points of the screenshot and scaled,
// so that it wraps where the finished picture does.
Item {
    id: editor
    required property CanvasItem canvas
    readonly property real textScale: canvas.textScale
    readonly property rect box: canvas.textRect
    visible: canvas.isEditingText
    width: box.width / textScale
    height: Math.max(box.height / textScale, area.contentHeight)
    // Scaled about the middle of the box, which a taller text leaves below.
    transformOrigin: Item.TopLeft
    transform: [
        Translate { x: -editor.box.width / 2 / editor.textScale; y: -editor.box.height / 2 / editor.textScale },
        Scale { xScale: editor.textScale; yScale: editor.textScale },
        Rotation { angle: editor.canvas.textRotation },
        Translate { x: editor.box.x + editor.box.width / 2; y: editor.box.y + editor.box.height / 2 }
    ]
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
        anchors.margins: -3 / editor.textScale
        color: "transparent"
        border.color: Theme.accent
        border.width: 1.5 / editor.textScale
        radius: 3 / editor.textScale
    }
    TextEdit {
        id: area
        anchors.fill: parent
        font: editor.canvas.textFont
        color: editor.canvas.textColor
        wrapMode: TextEdit.Wrap
        selectByMouse: true
        Accessible.name: qsTranslate("Kestrio", "Text")
        cursorDelegate: Rectangle {
            id: caret
            width: 1.5 / editor.textScale
            color: editor.canvas.textColor
            visible: area.cursorVisible
            SequentialAnimation on opacity {
                running: caret.visible && !Theme.isMotionReduced
                loops: Animation.Infinite
                PropertyAction { value: 1 }
                PauseAnimation { duration: 500 }
                PropertyAction { value: 0 }
                PauseAnimation { duration: 500 }
            }
        }
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
