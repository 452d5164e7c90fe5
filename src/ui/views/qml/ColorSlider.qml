import QtQuick
import QtQuick.Controls.Basic as Basic

// A slider along a row of colours; its value runs from 0 to 1.
Basic.Slider {
    id: slider
    property string name
    property var stops: []
    signal dragged(real value)
    signal settled()
    implicitHeight: 20
    focusPolicy: Qt.TabFocus
    Accessible.name: name
    Hint { isWanted: slider.hovered && !slider.pressed; words: slider.name }
    Connections {
        target: slider
        function onPositionChanged() { if (slider.pressed) slider.dragged(slider.position) }
        function onPressedChanged() { if (!slider.pressed) slider.settled() }
    }
    Keys.onLeftPressed: step(-0.02)
    Keys.onRightPressed: step(0.02)
    function step(by) {
        dragged(Math.max(0, Math.min(1, value + by)))
        settled()
    }

    background: Item {
        x: 0
        y: (slider.height - height) / 2
        width: slider.width
        height: 12
        // Cells in place of a gradient with many stops, which the software renderer draws slowly.
        Row {
            anchors.fill: parent
            Repeater {
                model: Math.max(0, slider.stops.length - 1)
                Rectangle {
                    required property int index
                    width: slider.width / (slider.stops.length - 1)
                    height: 12
                    gradient: Gradient {
                        orientation: Gradient.Horizontal
                        GradientStop { position: 0; color: slider.stops[index] }
                        GradientStop { position: 1; color: slider.stops[index + 1] }
                    }
                }
            }
        }
        Rectangle {
            anchors.fill: parent
            color: "transparent"
            border.color: Theme.hairline
        }
    }
    handle: Rectangle {
        x: slider.visualPosition * (slider.width - width)
        y: (slider.height - height) / 2
        width: 16
        height: 16
        radius: 8
        color: Theme.knob
        border.color: slider.visualFocus ? Theme.accent : Theme.knobEdge
        border.width: slider.visualFocus ? 2 : 1
    }
}
