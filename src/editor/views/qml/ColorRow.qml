import QtQuick
import QtQuick.Layouts
import Kestrio.Editor

// A labelled colour: quick ones to click, and a well that opens any other.
ColumnLayout {
    id: row
    required property EditorController controller
    property string label
    property color color
    property var quick: ["#FF3B30", "#FF9500", "#FFCC00", "#28CD41", "#007AFF", "#AF52DE",
        "#FFFFFF", "#1D1D1F"]
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
            controller: row.controller
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
