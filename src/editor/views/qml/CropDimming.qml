import QtQuick
import Kestrio.Ui

// Darkens a rectangle outside another: four rectangles around the inner one.
Item {
    id: dimming
    required property rect outer
    required property rect inner
    readonly property real innerRight: inner.x + inner.width
    readonly property real innerBottom: inner.y + inner.height
    Repeater {
        model: [
            Qt.rect(dimming.outer.x, dimming.outer.y, dimming.outer.width, dimming.inner.y - dimming.outer.y),
            Qt.rect(dimming.outer.x, dimming.innerBottom, dimming.outer.width,
                dimming.outer.y + dimming.outer.height - dimming.innerBottom),
            Qt.rect(dimming.outer.x, dimming.inner.y, dimming.inner.x - dimming.outer.x, dimming.inner.height),
            Qt.rect(dimming.innerRight, dimming.inner.y, dimming.outer.x + dimming.outer.width - dimming.innerRight,
                dimming.inner.height)
        ]
        Rectangle {
            required property rect modelData
            x: modelData.x
            y: modelData.y
            width: Math.max(0, modelData.width)
            height: Math.max(0, modelData.height)
            color: Theme.cropShade
        }
    }
}
