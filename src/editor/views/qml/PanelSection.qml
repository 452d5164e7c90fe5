import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic

// A folding part of the right panel.
ColumnLayout {
    id: section

    property string title
    property bool isOpen: false
    default property alias content: body.data
    signal toggled()

    spacing: 0

    Basic.AbstractButton {
        Layout.fillWidth: true
        implicitHeight: 40
        focusPolicy: Qt.TabFocus
        Accessible.name: section.title
        onClicked: section.toggled()
        background: Rectangle {
            color: parent.hovered ? Theme.hover : "transparent"
            border.width: parent.visualFocus ? 2 : 0
            border.color: Theme.accent
        }
        contentItem: RowLayout {
            Text {
                Layout.leftMargin: Theme.large
                Layout.fillWidth: true
                text: section.title
                font.pixelSize: Theme.bodySize
                font.weight: Font.DemiBold
                color: Theme.text
            }
            Symbol {
                Layout.rightMargin: Theme.medium
                size: 16
                name: section.isOpen ? "chevron.down" : "chevron.right"
                color: Theme.secondaryText
            }
        }
    }
    ColumnLayout {
        id: body
        visible: section.isOpen
        Layout.fillWidth: true
        Layout.leftMargin: Theme.large
        Layout.rightMargin: Theme.large
        Layout.bottomMargin: Theme.large
        spacing: Theme.medium
    }
    Rectangle {
        Layout.fillWidth: true
        implicitHeight: 1
        color: Theme.hairline
    }
}
