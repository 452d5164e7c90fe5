import QtQuick
import QtQuick.Layouts
import Kestrio.Ui

// The digits of a colour: as hex, or as three numbers.
ColumnLayout {
    id: field
    property color color
    signal picked(color color)
    spacing: Theme.tiny

    readonly property bool isHex: input.modeLabel === "Hex"

    CombinedColorInput {
        id: input
        onColorChanged: if (!Qt.colorEqual(color, field.color)) field.picked(color)
    }
    onColorChanged: input.color = color
    Component.onCompleted: input.color = color

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.tiny
        Chip {
            text: input.modeLabel
            Hint { isWanted: parent.hovered; words: qsTranslate("Kestrio", "Type hex digits or three numbers") }
            onClicked: input.switchMode()
        }
        TextBox {
            id: hex
            visible: field.isHex
            Layout.fillWidth: true
            implicitHeight: 26
            font.family: "monospace"
            font.pixelSize: Theme.captionSize
            Accessible.name: qsTranslate("Kestrio", "Hex digits of the colour")
            readonly property string shown: String(field.color).toUpperCase()
            text: shown
            onShownChanged: if (!activeFocus) text = shown
            onEdited: text => input.enterHex(text)
            onEditingFinished: text = shown
        }
        Repeater {
            model: field.isHex ? [] : [0, 1, 2]
            TextBox {
                required property int index
                readonly property real part: [field.color.r, field.color.g, field.color.b][index]
                Layout.fillWidth: true
                implicitWidth: 40
                implicitHeight: 26
                horizontalAlignment: TextInput.AlignHCenter
                font.pixelSize: Theme.captionSize
                Accessible.name: [qsTranslate("Kestrio", "Red"), qsTranslate("Kestrio", "Green"), qsTranslate("Kestrio", "Blue")][index]
                validator: IntValidator { bottom: 0; top: 255 }
                text: Math.round(part * 255)
                onEditingFinished: {
                    const rgb = [field.color.r, field.color.g, field.color.b].map(c => String(Math.round(c * 255)))
                    rgb[index] = text
                    input.enterRgb(rgb[0], rgb[1], rgb[2])
                    text = Qt.binding(() => Math.round(part * 255))
                }
            }
        }
    }
    Text {
        visible: text !== ""
        text: input.errorMessage
        font.pixelSize: Theme.captionSize
        color: Theme.danger
    }
}
