import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.Ui

// A colour to click, which opens the popover to change it.
Basic.AbstractButton {
    id: well
    required property ColorPicking picking
    property color color
    property var quick: []
    property string tip: qsTranslate("Kestrio", "Choose a colour")
    // While a slider is dragged, and when a colour is settled on.
    signal moved(color color)
    signal picked(color color)

    implicitWidth: 38
    implicitHeight: 24
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Button
    Accessible.name: tip
    onClicked: popover.active = true
    background: Rectangle {
        radius: Theme.radius
        color: well.color
        border.width: well.visualFocus || popover.active ? 2 : 1
        border.color: well.visualFocus || popover.active ? Theme.accent : Theme.hairline
    }
    Hint { isWanted: well.hovered && !popover.active; words: well.tip }

    Connections {
        target: well.picking
        function onPickedFor(receiver, color) { if (receiver === well) well.picked(color) }
    }
    Loader {
        id: popover
        active: false
        sourceComponent: ColorPopover {
            parent: well
            picking: well.picking
            color: well.color
            quick: well.quick
            y: well.height + 6
            x: Math.min(0, well.width - width)
            onMoved: color => well.moved(color)
            onPicked: color => well.picked(color)
            onEyedropperRequested: well.picking.pickFor(well)
            onClosed: popover.active = false
            Component.onCompleted: open()
        }
    }
}
