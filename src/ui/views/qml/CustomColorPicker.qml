import QtQuick
import QtQuick.Layouts
import Kestrio.Ui

// Hue, saturation and brightness, and a field for the digits of a colour.
ColumnLayout {
    id: picker
    property color color
    // While a slider is dragged, and when it is let go.
    signal moved(color color)
    signal picked(color color)

    // Kept apart from the colour: a grey has no hue, and black no saturation either.
    property real hue: Math.max(0, color.hsvHue)
    property real saturation: color.hsvSaturation
    property real brightness: color.hsvValue
    property bool isOwnChange: false
    spacing: Theme.small

    onColorChanged: {
        if (isOwnChange) return
        if (color.hsvHue >= 0) hue = color.hsvHue
        saturation = color.hsvSaturation
        brightness = color.hsvValue
    }

    function report(signal) {
        isOwnChange = true
        signal(Qt.hsva(hue, saturation, brightness, 1))
        isOwnChange = false
    }

    ColorSlider {
        Layout.fillWidth: true
        name: qsTranslate("Kestrio", "Hue")
        value: picker.hue
        stops: ["#ff0000", "#ffff00", "#00ff00", "#00ffff", "#0000ff", "#ff00ff", "#ff0000"]
        onDragged: value => { picker.hue = value; picker.report(picker.moved) }
        onSettled: picker.report(picker.picked)
    }
    ColorSlider {
        Layout.fillWidth: true
        name: qsTranslate("Kestrio", "Saturation")
        value: picker.saturation
        stops: [Qt.hsva(picker.hue, 0, picker.brightness, 1), Qt.hsva(picker.hue, 1, picker.brightness, 1)]
        onDragged: value => { picker.saturation = value; picker.report(picker.moved) }
        onSettled: picker.report(picker.picked)
    }
    ColorSlider {
        Layout.fillWidth: true
        name: qsTranslate("Kestrio", "Brightness")
        value: picker.brightness
        stops: ["#000000", Qt.hsva(picker.hue, picker.saturation, 1, 1)]
        onDragged: value => { picker.brightness = value; picker.report(picker.moved) }
        onSettled: picker.report(picker.picked)
    }
    ColorField {
        Layout.fillWidth: true
        color: picker.color
        onPicked: color => picker.picked(color)
    }
}
