import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Every shortcut at a glance.
Rectangle {
    id: overlay
    required property EditorController controller
    readonly property bool isShown: controller.isShortcutOverlayVisible
    property real keyWidth: 84  // of the widest key
    anchors.fill: parent
    visible: opacity > 0
    opacity: isShown ? 1 : 0
    color: Theme.dim
    Behavior on opacity { NumberAnimation { duration: Theme.motion } }
    onIsShownChanged: if (isShown) forceActiveFocus()
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Escape || event.text === "?") {
            controller.isShortcutOverlayVisible = false
            event.accepted = true
        }
    }
    MouseArea {
        anchors.fill: parent
        onClicked: overlay.controller.isShortcutOverlayVisible = false
    }
    Rectangle {
        anchors.centerIn: parent
        width: Math.min(parent.width - 48, columns.implicitWidth + 64)
        height: Math.min(parent.height - 48, columns.implicitHeight + 96)
        radius: Theme.largeRadius
        color: Theme.surface
        MouseArea { anchors.fill: parent }
        Text {
            anchors.left: parent.left
            anchors.leftMargin: 32
            y: 22
            text: qsTranslate("Kestrio", "Keyboard Shortcuts")
            font.pixelSize: 20
            font.weight: Font.DemiBold
            color: Theme.text
        }
        IconButton {
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: 14
            symbol: "xmark"
            tip: qsTranslate("Kestrio", "Close (Esc)")
            onClicked: overlay.controller.isShortcutOverlayVisible = false
        }
        Row {
            id: columns
            x: 32
            y: 64
            spacing: 40
            Repeater {
                model: overlay.isShown ? overlay.controller.commands.columns : []
                ColumnLayout {
                    required property var modelData
                    spacing: 10
                    Repeater {
                        model: parent.modelData
                        ColumnLayout {
                            id: category
                            required property var modelData
                            spacing: 4
                            Layout.bottomMargin: 8
                            Text {
                                text: category.modelData.name
                                font.pixelSize: Theme.bodySize
                                font.weight: Font.DemiBold
                                color: Theme.text
                                bottomPadding: 4
                            }
                            Repeater {
                                model: category.modelData.rows
                                RowLayout {
                                    id: line
                                    required property var modelData
                                    spacing: 10
                                    Rectangle {
                                        implicitWidth: overlay.keyWidth
                                        implicitHeight: 22
                                        radius: 4
                                        color: Theme.hover
                                        Text {
                                            anchors.centerIn: parent
                                            onImplicitWidthChanged: overlay.keyWidth = Math.max(overlay.keyWidth, implicitWidth + 16)
                                            text: line.modelData.shortcut
                                            font.pixelSize: Theme.captionSize
                                            color: Theme.text
                                        }
                                    }
                                    Text {
                                        text: line.modelData.description
                                        font.pixelSize: Theme.captionSize
                                        color: Theme.secondaryText
                                    }
                                }
                            }
                        }
                    }
                }
            }
        }
    }
}
