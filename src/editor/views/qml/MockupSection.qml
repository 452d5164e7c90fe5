import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor

PanelSection {
    id: section
    required property EditorController controller
    readonly property var style: controller.style
    title: qsTr("Corners and shadow")

    SliderRow {
        Layout.fillWidth: true
        enabled: section.style.frame === "none"
        opacity: enabled ? 1 : 0.4
        label: enabled ? qsTr("Corner radius") : qsTr("Corner radius (set by the frame)")
        to: 48
        usual: 12
        unit: " pt"
        value: section.style.cornerRadius
        onMoved: value => section.controller.set("cornerRadius", value)
        onSettled: section.controller.commit()
    }
    Toggle {
        Layout.fillWidth: true
        text: qsTr("Shadow")
        checked: section.style.shadow
        onToggled: section.controller.choose("shadow", checked)
    }
    Segments {
        Layout.fillWidth: true
        visible: section.style.shadow
        rows: section.controller.choices.shadowIntensity
        current: section.style.shadowIntensity
        onChosen: id => section.controller.choose("shadowIntensity", id)
    }
    Caption {
        visible: section.style.shadow
        text: qsTr("Light from")
    }
    Grid {
        visible: section.style.shadow
        columns: 3
        spacing: 4
        Repeater {
            model: section.controller.choices.light
            Basic.AbstractButton {
                id: lamp
                required property var modelData
                implicitWidth: 34
                implicitHeight: 26
                focusPolicy: Qt.TabFocus
                Accessible.name: modelData.name
                Basic.ToolTip.visible: hovered
                Basic.ToolTip.delay: 500
                Basic.ToolTip.text: modelData.name
                onClicked: section.controller.choose("light", modelData.id)
                background: Rectangle {
                    radius: Theme.radius
                    color: lamp.hovered ? Theme.hover : Theme.ground
                    border.width: lamp.visualFocus ? 2 : 0
                    border.color: Theme.accent
                }
                contentItem: Item {
                    Rectangle {
                        readonly property bool isCurrent: lamp.modelData.id === section.style.light
                        anchors.centerIn: parent
                        width: isCurrent ? 12 : 6
                        height: width
                        radius: width / 2
                        color: isCurrent ? Theme.accent : Theme.secondaryText
                        Behavior on width { NumberAnimation { duration: Theme.motion } }
                    }
                }
            }
        }
    }
}
