import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic

// A colour: quick ones to click, and a field for any other.
ColumnLayout {
    id: row

    property string label
    property color color
    property var quick: ["#ff3b30", "#ff9500", "#ffcc00", "#28cd41", "#007aff", "#af52de",
        "#ffffff", "#8e8e93", "#1d1d1f", "#33334d"]
    signal picked(color color)

    spacing: 6

    RowLayout {
        Layout.fillWidth: true
        Caption {
            text: row.label
            Layout.fillWidth: true
        }
        Rectangle {
            implicitWidth: 16
            implicitHeight: 16
            radius: 4
            color: row.color
            border.color: Theme.hairline
        }
        TextInput {
            id: field
            text: String(row.color).toUpperCase()
            font.pixelSize: Theme.captionSize
            font.family: "monospace"
            color: acceptableInput ? Theme.text : Theme.danger
            selectByMouse: true
            validator: RegularExpressionValidator {
                regularExpression: /#?([0-9a-fA-F]{3}|[0-9a-fA-F]{6})/
            }
            Accessible.name: row.label
            onAccepted: {
                row.picked(text.startsWith("#") ? text : "#" + text)
                text = Qt.binding(() => String(row.color).toUpperCase())
                focus = false
            }
            onActiveFocusChanged: {
                if (activeFocus) selectAll()
                else text = Qt.binding(() => String(row.color).toUpperCase())
            }
        }
    }
    Row {
        spacing: 5
        Repeater {
            model: row.quick
            Swatch {
                required property var modelData
                color: modelData
                isCurrent: Qt.colorEqual(row.color, modelData)
                onClicked: row.picked(modelData)
            }
        }
    }
}
