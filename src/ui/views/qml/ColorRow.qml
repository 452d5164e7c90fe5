import QtQuick
import QtQuick.Layouts
import Kestrio.Ui

// A labelled colour: quick ones to click, and a well that opens any other.
ColumnLayout {
    id: row
    required property ColorPicking picking
    property string label
    property color color
    property var quick: Theme.quickColors
    // While a slider is dragged, and when a colour is settled on.
    signal moved(color color)
    signal picked(color color)

    spacing: 6

    RowLayout {
        Layout.fillWidth: true
        Caption {
            text: row.label
            Layout.fillWidth: true
        }
        ColorWell {
            picking: row.picking
            color: row.color
            quick: row.quick
            onMoved: color => row.moved(color)
            onPicked: color => row.picked(color)
        }
    }
    SwatchRow {
        Layout.fillWidth: true
        colors: row.quick
        current: row.color
        onChosen: color => row.picked(color)
    }
}
