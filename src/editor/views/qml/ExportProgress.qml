import QtQuick
import Kestrio.Editor

// Shown while output takes noticeably long.
Rectangle {
    id: progress
    required property EditorController controller
    property bool isLong: false
    visible: controller.isExporting && isLong
    width: 260
    height: 44
    radius: Theme.largeRadius
    color: Theme.surface
    border.color: Theme.hairline

    Timer {
        interval: 250
        running: progress.controller.isExporting
        onTriggered: progress.isLong = true
        onRunningChanged: if (running) progress.isLong = false
    }
    Row {
        anchors.centerIn: parent
        spacing: Theme.small
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 180
            height: 4
            radius: 2
            color: Theme.hairline
            Rectangle {
                width: parent.width * progress.controller.exportProgress
                height: 4
                radius: 2
                color: Theme.accent
            }
        }
        IconButton {
            symbol: "xmark"
            tip: qsTr("Cancel")
            onClicked: progress.controller.cancelExport()
        }
    }
}
