import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// Edits the number of a badge where it stands.
Item {
    id: editor
    required property CanvasItem canvas
    required property EditorController controller
    readonly property numberEditorState state_: controller.annotation.numberEditing
    visible: state_.isEditing
    x: canvas.numberEditorRect.x
    y: canvas.numberEditorRect.y
    width: canvas.numberEditorRect.width
    height: canvas.numberEditorRect.height
    onVisibleChanged: {
        if (!visible) {
            if (field.activeFocus) canvas.forceActiveFocus()
            return
        }
        field.text = state_.text
        field.forceActiveFocus()
        field.selectAll()
    }

    TextBox {
        id: field
        anchors.fill: parent
        objectName: "annotation.number.editor"
        horizontalAlignment: TextInput.AlignHCenter
        Accessible.name: qsTranslate("Kestrio", "Number")
        onEdited: text => editor.controller.annotation.setNumberText(text)
        onAccepted: editor.controller.annotation.commitNumber()
        Keys.onEscapePressed: editor.controller.annotation.cancelNumber()
        onActiveFocusChanged: if (!activeFocus && editor.visible) editor.controller.annotation.finishEditing()
    }
    Rectangle {
        anchors.top: field.bottom
        anchors.topMargin: 4
        anchors.horizontalCenter: field.horizontalCenter
        visible: problem.text !== ""
        width: problem.implicitWidth + 16
        height: 22
        radius: Theme.radius
        color: Theme.surface
        border.color: Theme.danger
        Text {
            id: problem
            anchors.centerIn: parent
            text: editor.state_.error
            font.pixelSize: Theme.captionSize
            color: Theme.danger
        }
    }
}
