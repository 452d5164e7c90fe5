import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// The shape of the canvas: general ones, those of social platforms, and any other.
ColumnLayout {
    id: picker
    required property EditorController controller
    property string openPlatform
    spacing: Theme.small

    RowLayout {
        Layout.fillWidth: true
        Caption {
            Layout.fillWidth: true
            text: qsTranslate("Kestrio", "Canvas shape")
        }
        Caption {
            color: Theme.text
            text: picker.controller.aspectName
        }
    }
    Flow {
        Layout.fillWidth: true
        spacing: 6
        Repeater {
            model: picker.controller.choices.aspect
            Chip {
                required property var modelData
                text: modelData.name
                isCurrent: picker.controller.aspectName === modelData.id
                onClicked: picker.controller.setAspect(modelData.id, modelData.ratio)
            }
        }
    }
    Repeater {
        model: picker.controller.choices.social
        ColumnLayout {
            id: platform
            required property var modelData
            readonly property bool isOpen: picker.openPlatform === modelData.id
            Layout.fillWidth: true
            spacing: 6
            Basic.AbstractButton {
                id: heading
                Layout.fillWidth: true
                implicitHeight: 24
                focusPolicy: Qt.TabFocus
                Accessible.name: platform.modelData.name
                onClicked: picker.openPlatform = platform.isOpen ? "" : platform.modelData.id
                background: Rectangle {
                    radius: Theme.radius
                    color: heading.hovered ? Theme.hover : "transparent"
                    border.width: heading.visualFocus ? 2 : 0
                    border.color: Theme.accent
                }
                contentItem: RowLayout {
                    spacing: 6
                    Symbol {
                        name: "platform." + platform.modelData.id
                        size: 14
                        color: Theme.secondaryText
                    }
                    Text {
                        Layout.fillWidth: true
                        text: platform.modelData.name
                        font.pixelSize: Theme.captionSize
                        color: Theme.text
                    }
                    Symbol {
                        name: platform.isOpen ? "chevron.down" : "chevron.right"
                        size: 12
                        color: Theme.secondaryText
                    }
                }
            }
            Flow {
                Layout.fillWidth: true
                Layout.leftMargin: 20
                visible: platform.isOpen
                spacing: 6
                Repeater {
                    model: platform.modelData.rows
                    Chip {
                        required property var modelData
                        readonly property string fullName: platform.modelData.name + " " + modelData.name
                        text: modelData.name
                        isCurrent: picker.controller.aspectName === fullName
                        onClicked: picker.controller.setAspect(fullName, modelData.ratio)
                    }
                }
            }
        }
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: 6
        Caption {
            Layout.fillWidth: true
            text: qsTranslate("Kestrio", "Custom")
        }
        TextBox {
            id: wide
            implicitWidth: 54
            implicitHeight: 26
            placeholder: qsTranslate("Kestrio", "Width")
            font.pixelSize: Theme.captionSize
            horizontalAlignment: TextInput.AlignHCenter
            onAccepted: custom.apply()
        }
        Caption { text: ":" }
        TextBox {
            id: high
            implicitWidth: 54
            implicitHeight: 26
            placeholder: qsTranslate("Kestrio", "Height")
            font.pixelSize: Theme.captionSize
            horizontalAlignment: TextInput.AlignHCenter
            onAccepted: custom.apply()
        }
        IconButton {
            id: custom
            symbol: "checkmark"
            implicitWidth: 26
            implicitHeight: 26
            enabled: wide.text !== "" && high.text !== ""
            tip: qsTranslate("Kestrio", "Use this ratio")
            key: "Return"
            function apply() { problem.text = picker.controller.setCustomAspect(wide.text, high.text) }
            onClicked: apply()
        }
    }
    Text {
        id: problem
        visible: text !== ""
        Layout.fillWidth: true
        wrapMode: Text.Wrap
        font.pixelSize: Theme.captionSize
        color: Theme.danger
    }
}
