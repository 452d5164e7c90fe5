import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Says that the picture is being read, and ends that.
Rectangle {
    id: note
    required property TextPanel panel
    implicitWidth: row.implicitWidth + 20
    implicitHeight: 42
    radius: Theme.largeRadius
    color: Theme.surface
    border.color: Theme.hairline
    Accessible.role: Accessible.Indicator
    Accessible.name: label.text

    RowLayout {
        id: row
        anchors.centerIn: parent
        spacing: Theme.small
        Symbol {
            Layout.leftMargin: Theme.tiny
            name: "text.viewfinder"
            size: 18
            color: Theme.accent
            SequentialAnimation on opacity {
                running: !Theme.isMotionReduced
                loops: Animation.Infinite
                NumberAnimation { from: 1; to: 0.35; duration: 480 }
                NumberAnimation { from: 0.35; to: 1; duration: 480 }
            }
        }
        Text {
            id: label
            text: qsTranslate("Kestrio", "Scanning text...")
            font.pixelSize: Theme.bodySize
            color: Theme.text
        }
        Chip {
            text: qsTranslate("Kestrio", "Cancel")
            onClicked: note.panel.cancelScan()
        }
    }
}
