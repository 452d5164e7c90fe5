import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Colours of the picture: picked with the eyedropper, kept for a while, copied as texts.
ColumnLayout {
    id: section
    required property EditorController controller
    readonly property ColorPanel colors: controller.colors
    spacing: Theme.medium

    IconButton {
        Layout.fillWidth: true
        symbol: "eyedropper"
        text: qsTranslate("Kestrio", "Pick from the picture")
        tip: qsTranslate("Kestrio", "Pick a colour; with Alt for the backdrop")
        key: section.controller.commands.key("eyedropper")
        checked: section.colors.isPicking
        background: Rectangle {
            radius: Theme.radius
            color: parent.checked ? Theme.accent : parent.hovered ? Theme.pressed : Theme.well
            border.width: parent.visualFocus ? 2 : 0
            border.color: Theme.accent
        }
        onClicked: section.controller.commands.run("eyedropper")
    }
    Rectangle {
        Layout.fillWidth: true
        implicitHeight: 56
        radius: Theme.radius
        color: section.colors.hasColor ? section.colors.swatch : Theme.well
        border.color: Theme.hairline
        Text {
            anchors.left: parent.left
            anchors.leftMargin: Theme.medium
            anchors.verticalCenter: parent.verticalCenter
            text: section.colors.text
            font.pixelSize: Theme.bodySize
            font.weight: Font.Medium
            color: section.colors.hasColor ? section.colors.textOn(section.colors.swatch) : Theme.secondaryText
        }
        IconButton {
            anchors.right: parent.right
            anchors.rightMargin: Theme.small
            anchors.verticalCenter: parent.verticalCenter
            visible: section.colors.hasColor
            symbol: section.colors.isCopied ? "checkmark" : "doc.on.doc"
            symbolColor: section.colors.textOn(section.colors.swatch)
            tip: qsTranslate("Kestrio", "Copy this text")
            onClicked: section.colors.copy()
        }
    }
    Segments {
        Layout.fillWidth: true
        rows: section.colors.formats
        current: section.colors.format
        onChosen: id => section.colors.chooseFormat(id)
    }
    Caption {
        visible: section.colors.recent.length > 0
        text: qsTranslate("Kestrio", "Recent")
    }
    SwatchRow {
        Layout.fillWidth: true
        visible: section.colors.recent.length > 0
        colors: section.colors.recent
        current: section.colors.swatch
        onChosen: color => section.colors.show(color)
    }
    ColorField {
        Layout.fillWidth: true
        color: section.colors.hasColor ? section.colors.swatch : "#000000"
        onPicked: color => section.colors.show(color)
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small
        Chip {
            text: qsTranslate("Kestrio", "Use for the backdrop")
            enabled: section.colors.hasColor
            opacity: enabled ? 1 : 0.4
            onClicked: section.controller.style.solidColor.choose(section.colors.swatch)
        }
        Chip {
            text: qsTranslate("Kestrio", "Use for the tools")
            enabled: section.colors.hasColor
            opacity: enabled ? 1 : 0.4
            onClicked: section.controller.annotation.setColor(section.colors.swatch)
        }
    }
}
