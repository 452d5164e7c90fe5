import QtQuick

// Colours to click, in rows of eight.
Item {
    id: row
    property var colors: []
    property color current
    signal chosen(color color)

    readonly property int columns: 8
    readonly property real step: columns > 1 ? (width - 20) / (columns - 1) : 0
    implicitHeight: Math.max(1, Math.ceil(colors.length / columns)) * 26 - 6

    Repeater {
        model: row.colors
        Swatch {
            required property var modelData
            required property int index
            x: (index % row.columns) * row.step
            y: Math.floor(index / row.columns) * 26
            color: modelData
            isCurrent: Qt.colorEqual(row.current, modelData)
            onClicked: row.chosen(modelData)
        }
    }
}
