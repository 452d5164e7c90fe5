import QtQuick
import QtQuick.Layouts
import Kestrio.Editor

// Improves the picture itself by filters.
Rectangle {
    id: sheet
    required property EditorController controller
    property bool isShown: false
    property string mode: "auto"
    property real strength: 0.5

    visible: opacity > 0
    opacity: isShown ? 1 : 0
    color: "#66000000"
    Behavior on opacity { NumberAnimation { duration: Theme.motion } }
    onIsShownChanged: if (isShown) forceActiveFocus()
    Keys.onEscapePressed: isShown = false
    MouseArea {
        anchors.fill: parent
        onClicked: sheet.isShown = false
    }
    Rectangle {
        anchors.centerIn: parent
        width: 420
        height: content.implicitHeight + 48
        radius: Theme.largeRadius
        color: Theme.surface
        MouseArea { anchors.fill: parent }
        ColumnLayout {
            id: content
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: Theme.huge
            spacing: Theme.medium
            Text {
                text: qsTr("Enhance the picture")
                font.pixelSize: Theme.titleSize
                font.weight: Font.DemiBold
                color: Theme.text
            }
            Segments {
                Layout.fillWidth: true
                rows: [{id: "auto", name: qsTr("Auto")}, {id: "sharpen", name: qsTr("Sharpen")},
                    {id: "denoise", name: qsTr("Denoise")}, {id: "enhanceColors", name: qsTr("Colours")},
                    {id: "upscale", name: qsTr("Upscale")}]
                current: sheet.mode
                onChosen: id => sheet.mode = id
            }
            SliderRow {
                Layout.fillWidth: true
                enabled: sheet.mode !== "upscale"
                opacity: enabled ? 1 : 0.4
                label: qsTr("Intensity")
                to: 1
                usual: 0.5
                factor: 100
                unit: " %"
                value: sheet.strength
                onMoved: value => sheet.strength = value
            }
            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.small
                IconButton {
                    text: qsTr("Restore original")
                    enabled: sheet.controller.canRestore && !sheet.controller.isEnhancing
                    onClicked: sheet.controller.restoreOriginal()
                }
                Item { Layout.fillWidth: true }
                IconButton {
                    text: qsTr("Close")
                    onClicked: sheet.isShown = false
                }
                IconButton {
                    text: sheet.controller.isEnhancing ? qsTr("Working…") : qsTr("Enhance")
                    isPrimary: true
                    enabled: !sheet.controller.isEnhancing
                    onClicked: sheet.controller.enhance(sheet.mode, sheet.strength)
                }
            }
        }
    }
}
