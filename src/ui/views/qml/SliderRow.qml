import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic

// A labelled slider with a field for exact numbers; a double click on the slider goes back to the
// usual value.
ColumnLayout {
    id: row

    property string label
    property real value
    property real from: 0
    property real to: 100
    property real usual: from
    property int decimals: 0
    property real factor: 1
    property string unit

    signal moved(real value)
    signal settled()

    spacing: 2

    function shown(v) { return (v * factor).toFixed(decimals) }
    function reset() {
        row.moved(row.usual)
        row.settled()
    }

    RowLayout {
        Layout.fillWidth: true
        Text {
            text: row.label
            font.pixelSize: Theme.captionSize
            color: Theme.secondaryText
            Layout.fillWidth: true
            elide: Text.ElideRight
        }
        TextInput {
            id: field
            text: row.shown(row.value) + row.unit
            font.pixelSize: Theme.captionSize
            color: activeFocus ? Theme.text : Theme.secondaryText
            selectByMouse: true
            horizontalAlignment: TextInput.AlignRight
            Layout.minimumWidth: 40
            Accessible.name: row.label
            property bool isTyped: false
            onTextEdited: isTyped = true
            onActiveFocusChanged: if (activeFocus) selectAll()
            // Comes with Return and with the loss of the focus, before `accepted`.
            onEditingFinished: {
                const number = parseFloat(text.replace(",", "."))
                if (isTyped && !isNaN(number)) {
                    row.moved(Math.max(row.from, Math.min(row.to, number / row.factor)))
                    row.settled()
                }
                restore()
            }
            // Later, so that the window still finds the field typing when Return comes to it.
            onAccepted: Qt.callLater(() => focus = false)
            Keys.onEscapePressed: event => {
                restore()
                event.accepted = false
            }
            function restore() {
                isTyped = false
                text = Qt.binding(() => row.shown(row.value) + row.unit)
            }
        }
    }
    Basic.Slider {
        id: slider
        Layout.fillWidth: true
        implicitHeight: 20
        from: row.from
        to: row.to
        value: row.value
        focusPolicy: Qt.TabFocus
        Accessible.name: row.label
        onMoved: row.moved(value)
        property real lastPress: 0
        property bool isSecondPress: false
        onPressedChanged: {
            if (pressed) {
                isSecondPress = Date.now() - lastPress < Application.styleHints.mouseDoubleClickInterval
                lastPress = Date.now()
            } else if (isSecondPress) {
                row.reset()
            } else {
                row.settled()
            }
        }

        background: Rectangle {
            x: slider.leftPadding
            y: (slider.height - height) / 2
            width: slider.availableWidth
            height: 4
            radius: 2
            color: Theme.hairline
            Rectangle {
                anchors.left: parent.left
                width: slider.position * parent.width
                height: parent.height
                radius: 2
                color: Theme.accent
            }
        }
        handle: Rectangle {
            x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
            y: (slider.height - height) / 2
            width: 14
            height: 14
            radius: 7
            color: Theme.knob
            border.color: slider.visualFocus ? Theme.accent : Qt.darker(Theme.hairline, 1.25)
            border.width: slider.visualFocus ? 2 : 1
        }
    }
}
