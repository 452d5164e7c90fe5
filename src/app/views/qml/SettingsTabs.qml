import QtQuick
import QtQuick.Controls.Basic as Basic
import Kestrio.App
import Kestrio.Ui

// The row of tabs at the top. Arrow keys move between them.
Rectangle {
    id: bar
    required property SettingsController controller
    readonly property var symbols: ({
        general: "gearshape", screenshots: "viewfinder", shortcuts: "keyboard", privacy: "hand.raised",
        about: "info.circle"
    })

    implicitHeight: 72
    color: Theme.surface

    Row {
        anchors.centerIn: parent
        spacing: Theme.small
        Repeater {
            id: tabs
            model: bar.controller.tabs
            Basic.AbstractButton {
                id: tab
                required property var modelData
                required property int index
                readonly property bool isCurrent: bar.controller.tab === modelData.id
                width: 92
                height: 56
                focusPolicy: Qt.TabFocus
                Accessible.role: Accessible.PageTab
                Accessible.name: modelData.name
                objectName: "tab-" + modelData.id
                onClicked: bar.controller.tab = modelData.id
                Keys.onRightPressed: (tabs.itemAt(index + 1) ?? tab).forceActiveFocus(Qt.TabFocusReason)
                Keys.onLeftPressed: (tabs.itemAt(index - 1) ?? tab).forceActiveFocus(Qt.TabFocusReason)
                contentItem: Column {
                    spacing: Theme.tiny
                    topPadding: 6
                    Symbol {
                        anchors.horizontalCenter: parent.horizontalCenter
                        name: bar.symbols[tab.modelData.id]
                        size: 22
                        color: tab.isCurrent ? Theme.accent : Theme.secondaryText
                    }
                    Text {
                        anchors.horizontalCenter: parent.horizontalCenter
                        text: tab.modelData.name
                        font.pixelSize: Theme.captionSize
                        font.weight: tab.isCurrent ? Font.DemiBold : Font.Normal
                        color: tab.isCurrent ? Theme.accent : Theme.secondaryText
                    }
                }
                background: Rectangle {
                    radius: Theme.largeRadius
                    color: tab.isCurrent ? Theme.well : tab.hovered ? Theme.hover : "transparent"
                    border.width: tab.visualFocus ? 2 : 0
                    border.color: Theme.accent
                }
            }
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
    }
}
