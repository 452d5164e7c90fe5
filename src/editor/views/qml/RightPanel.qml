import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor

Rectangle {
    id: panel
    objectName: "rightPanel"
    required property EditorController controller
    property string open: "backdrop"
    color: Theme.surface

    function toggle(name) { open = open === name ? "" : name }

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
            BackdropSection {
                Layout.fillWidth: true
                controller: panel.controller
                isOpen: panel.open === "backdrop"
                onToggled: panel.toggle("backdrop")
            }
            FrameSection {
                Layout.fillWidth: true
                controller: panel.controller
                isOpen: panel.open === "frame"
                onToggled: panel.toggle("frame")
            }
            MockupSection {
                Layout.fillWidth: true
                controller: panel.controller
                isOpen: panel.open === "mockup"
                onToggled: panel.toggle("mockup")
            }
            WatermarkSection {
                Layout.fillWidth: true
                controller: panel.controller
                isOpen: panel.open === "watermark"
                onToggled: panel.toggle("watermark")
            }
        }
    }
}
