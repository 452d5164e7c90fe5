import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// A grip from which the finished picture is dragged into another program.
IconButton {
    id: grip
    required property OutputPanel output
    symbol: "hand.drag"
    tip: qsTranslate("Kestrio", "Drag the finished picture into another program")
    focusPolicy: Qt.NoFocus
    enabled: !output.isBusy || drag.active
    DragHandler {
        id: drag
        target: null
        dragThreshold: 4
        onActiveChanged: active ? grip.output.beginDrag() : grip.output.endDrag()
    }
    HoverHandler { cursorShape: Qt.OpenHandCursor }
}
