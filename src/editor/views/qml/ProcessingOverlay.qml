import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Stands in for the whole window while its picture is still being put together.
Rectangle {
    color: Theme.ground
    Accessible.role: Accessible.Indicator
    Accessible.name: label.text

    // What lies below gets no pointer.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: {}
    }
    ColumnLayout {
        anchors.centerIn: parent
        spacing: Theme.medium

        Row {
            Layout.alignment: Qt.AlignHCenter
            spacing: Theme.small
            Repeater {
                model: 3
                Rectangle {
                    id: dot
                    required property int index
                    width: 10
                    height: 10
                    radius: 5
                    color: Theme.accent
                    SequentialAnimation on opacity {
                        running: !Theme.isMotionReduced
                        loops: Animation.Infinite
                        PauseAnimation { duration: dot.index * 160 }
                        NumberAnimation { from: 0.25; to: 1; duration: 320 }
                        NumberAnimation { from: 1; to: 0.25; duration: 320 }
                        PauseAnimation { duration: (2 - dot.index) * 160 }
                    }
                }
            }
        }
        Text {
            id: label
            text: qsTranslate("Kestrio", "Putting the picture together…")
            font.pixelSize: Theme.bodySize
            color: Theme.secondaryText
        }
    }
}
