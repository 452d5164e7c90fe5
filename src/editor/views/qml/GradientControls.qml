import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// The gradients in their groups, and one of the user's own colours.
ColumnLayout {
    id: controls
    required property EditorController controller
    readonly property var own: controller.style.customGradient.value
    readonly property int greatestCount: 6
    spacing: Theme.small

    Repeater {
        model: controls.controller.choices.gradientGroups
        ColumnLayout {
            id: group
            required property var modelData
            Layout.fillWidth: true
            spacing: Theme.tiny
            Caption { text: group.modelData.name }
            ThumbnailGrid {
                controller: controls.controller
                Layout.fillWidth: true
                kind: "gradient"
                columns: 5
                tileHeight: 28
                rows: group.modelData.rows
                current: controls.controller.style.gradient.value
                onChosen: id => controls.controller.style.gradient.choose(id)
            }
        }
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.tiny
        Caption {
            Layout.fillWidth: true
            text: qsTranslate("Kestrio", "Your own")
        }
        IconButton {
            visible: controls.own.length > 2
            symbol: "minus"
            implicitWidth: 26
            implicitHeight: 26
            tip: qsTranslate("Kestrio", "Remove the last colour")
            onClicked: controls.controller.style.customGradient.choose(controls.own.slice(0, -1))
        }
        IconButton {
            symbol: "plus"
            implicitWidth: 26
            implicitHeight: 26
            enabled: controls.own.length < controls.greatestCount
            tip: controls.own.length < 2 ? qsTranslate("Kestrio", "Make a gradient of your own") : qsTranslate("Kestrio", "Add a colour")
            onClicked: controls.controller.style.customGradient.choose(controls.own.length < 2
                ? ["#5B8DEF", "#B26BE8"] : controls.own.concat([controls.own[controls.own.length - 1]]))
        }
    }
    Row {
        visible: controls.own.length >= 2
        spacing: 4
        Repeater {
            model: controls.own.length
            ColorWell {
                required property int index
                picking: controls.controller.colors
                color: controls.own[index] ?? "transparent"
                tip: qsTranslate("Kestrio", "Colour %1 of the gradient").arg(index + 1)
                function changed(color) {
                    const colors = controls.own.slice()
                    colors[index] = color
                    return colors
                }
                onMoved: color => controls.controller.style.customGradient.value = changed(color)
                onPicked: color => controls.controller.style.customGradient.choose(changed(color))
            }
        }
    }
}
