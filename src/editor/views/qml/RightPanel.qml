import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

Rectangle {
    id: panel
    objectName: "rightPanel"
    required property EditorController controller
    color: Theme.surface
    onWidthChanged: controller.updatePanel(width, height)
    onHeightChanged: controller.updatePanel(width, height)
    // The edge beside the canvas was dragged this far to the left, in points.
    signal widened(real by)

    Rectangle {
        width: 1
        height: parent.height
        color: Theme.hairline
    }
    Basic.ScrollView {
        id: scroll
        anchors.fill: parent
        anchors.leftMargin: 1
        contentWidth: availableWidth
        Basic.ScrollBar.horizontal.policy: Basic.ScrollBar.AlwaysOff

        ColumnLayout {
            width: scroll.availableWidth
            spacing: 0
            PanelSection {
                Layout.fillWidth: true
                controller: panel.controller
                name: "backdrop"
                title: qsTr("Backdrop")
                BackdropSection { controller: panel.controller }
            }
            PanelSection {
                Layout.fillWidth: true
                controller: panel.controller
                name: "frame"
                title: qsTr("Frame")
                FrameSection { controller: panel.controller }
            }
            PanelSection {
                Layout.fillWidth: true
                controller: panel.controller
                name: "mockup"
                title: qsTr("Corners and shadow")
                MockupSection { controller: panel.controller }
            }
            PanelSection {
                Layout.fillWidth: true
                controller: panel.controller
                name: "colors"
                title: qsTr("Colours")
                ColorsSection { controller: panel.controller }
            }
            PanelSection {
                Layout.fillWidth: true
                controller: panel.controller
                name: "watermark"
                title: qsTr("Watermark")
                WatermarkSection { controller: panel.controller }
            }
        }
    }
    MouseArea {
        property real start
        width: 6
        height: parent.height
        cursorShape: Qt.SplitHCursor
        onPressed: mouse => start = mouse.x
        onPositionChanged: mouse => panel.widened(start - mouse.x)
    }
}
