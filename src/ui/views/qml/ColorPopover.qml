import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Kestrio.Ui

// Quick colours, those picked last, sliders and fields for any other, and the eyedropper.
Basic.Popup {
    id: popover
    required property ColorPicking picking
    property color color
    property var quick: []
    property bool showsCustom: false
    // While a slider is dragged, and when a colour is settled on.
    signal moved(color color)
    signal picked(color color)
    // The eyedropper is wanted for this colour.
    signal eyedropperRequested()

    width: 232
    padding: Theme.medium
    margins: Theme.small
    focus: true
    onOpened: showsCustom = false

    background: Rectangle {
        radius: Theme.largeRadius
        color: Theme.surface
        border.color: Theme.hairline
    }
    contentItem: ColumnLayout {
        spacing: Theme.small

        SwatchRow {
            Layout.fillWidth: true
            colors: popover.quick
            current: popover.color
            onChosen: color => popover.picked(color)
        }
        Caption {
            visible: recent.visible
            text: qsTranslate("Kestrio", "Recent")
        }
        SwatchRow {
            id: recent
            Layout.fillWidth: true
            visible: popover.picking.recent.length > 0
            colors: popover.picking.recent
            current: popover.color
            onChosen: color => popover.picked(color)
        }
        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.tiny
            IconButton {
                text: qsTranslate("Kestrio", "Custom")
                symbol: popover.showsCustom ? "chevron.down" : "chevron.right"
                implicitHeight: 28
                onClicked: popover.showsCustom = !popover.showsCustom
            }
            Item { Layout.fillWidth: true }
            IconButton {
                symbol: "eyedropper"
                implicitWidth: 28
                implicitHeight: 28
                tip: qsTranslate("Kestrio", "Pick from the picture")
                onClicked: {
                    popover.eyedropperRequested()
                    popover.close()
                }
            }
        }
        Loader {
            Layout.fillWidth: true
            active: popover.showsCustom
            visible: active
            sourceComponent: CustomColorPicker {
                color: popover.color
                onMoved: color => popover.moved(color)
                onPicked: color => popover.picked(color)
            }
        }
    }
}
