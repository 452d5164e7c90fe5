import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// A folding part of the right panel. What it holds is made when it is unfolded.
ColumnLayout {
    id: section

    required property EditorController controller
    property string name
    property string title
    readonly property bool isOpen: controller.openPanel === name
    default property Component content

    spacing: 0

    Basic.AbstractButton {
        Layout.fillWidth: true
        implicitHeight: 40
        focusPolicy: Qt.TabFocus
        Accessible.name: section.title
        Accessible.role: Accessible.Button
        onClicked: section.controller.togglePanel(section.name)
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
    Loader {
        active: section.isOpen
        visible: active
        sourceComponent: section.content
        Layout.fillWidth: true
        Layout.leftMargin: Theme.large
        Layout.rightMargin: Theme.large
        Layout.bottomMargin: Theme.large
    }
    Rectangle {
        Layout.fillWidth: true
        implicitHeight: 1
        color: Theme.hairline
    }
}
