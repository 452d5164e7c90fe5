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
    // The edge beside the canvas was dragged this far away from the panel, in points.
    signal widened(real by)

    Rectangle {
        anchors.left: parent.left
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
                title: qsTranslate("Kestrio", "Backdrop")
                BackdropSection { controller: panel.controller }
            }
            PanelSection {
                Layout.fillWidth: true
                controller: panel.controller
                name: "frame"
                title: qsTranslate("Kestrio", "Frame")
                FrameSection { controller: panel.controller }
            }
            PanelSection {
                Layout.fillWidth: true
                controller: panel.controller
                name: "mockup"
                title: qsTranslate("Kestrio", "Corners and shadow")
                MockupSection { controller: panel.controller }
            }
            PanelSection {
                Layout.fillWidth: true
                controller: panel.controller
                name: "colors"
                title: qsTranslate("Kestrio", "Colours")
                ColorsSection { controller: panel.controller }
            }
            PanelSection {
                Layout.fillWidth: true
                controller: panel.controller
                name: "watermark"
                title: qsTranslate("Kestrio", "Watermark")
                WatermarkSection { controller: panel.controller }
            }
        }
    }
    MouseArea {
        property real start
        readonly property int outward: LayoutMirroring.enabled ? 1 : -1
        anchors.left: parent.left
        width: 6
        height: parent.height
        cursorShape: Qt.SplitHCursor
        onPressed: mouse => start = mouse.x
        onPositionChanged: mouse => panel.widened((mouse.x - start) * outward)
    }
}
