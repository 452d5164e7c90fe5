import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// Zoom as a percentage to type, with buttons on both sides.
Row {
    id: zoom
    required property EditorController controller
    spacing: 0

    CommandButton {
        commands: zoom.controller.commands
        command: "zoomOut"
        symbol: "minus"
    }
    Basic.TextField {
        id: field
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 54
        implicitHeight: 28
        horizontalAlignment: TextInput.AlignHCenter
        font.pixelSize: Theme.bodySize
        color: Theme.text
        text: zoom.controller.zoomPercent + " %"
        selectByMouse: true
        Accessible.name: qsTranslate("Kestrio", "Zoom")
        Hint { isWanted: field.hovered && !field.activeFocus; words: qsTranslate("Kestrio", "Click to edit zoom percentage (10% - 500%)") }
        onActiveFocusChanged: if (activeFocus) selectAll()
        onReleased: if (selectedText === "") selectAll()
        property bool isTyped: false
        onTextEdited: isTyped = true
        // Comes with Return and with the loss of the focus, before `accepted`.
        onEditingFinished: {
            if (isTyped) zoom.controller.setZoomText(text)
            restore()
        }
        // Later, so that the window still finds the field typing when Return comes to it.
        onAccepted: Qt.callLater(() => focus = false)
        Keys.onEscapePressed: event => {
            restore()
            event.accepted = false
        }
        function restore() {
            isTyped = false
            text = Qt.binding(() => zoom.controller.zoomPercent + " %")
        }
        background: Rectangle {
            radius: Theme.radius
            color: field.activeFocus ? Theme.raised : field.hovered ? Theme.hover : "transparent"
            border.width: field.activeFocus ? 2 : 0
            border.color: Theme.accent
        }
    }
    CommandButton {
        commands: zoom.controller.commands
        command: "zoomIn"
        symbol: "plus"
    }
}
