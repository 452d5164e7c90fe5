import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor

// Tools, colour, stroke and fill, floating over the canvas.
Rectangle {
    id: annotator
    required property EditorController controller
    readonly property var tool: controller.tool

    implicitWidth: content.implicitWidth + 16
    implicitHeight: content.implicitHeight + 12
    radius: Theme.largeRadius
    color: Theme.surface
    border.color: Theme.hairline

    ColumnLayout {
        id: content
        anchors.centerIn: parent
        spacing: 6

        Row {
            spacing: 2
            Layout.alignment: Qt.AlignHCenter
            Repeater {
                model: annotator.controller.tools
                IconButton {
                    required property var modelData
                    symbol: modelData.id
                    tip: modelData.name + " – " + modelData.description
                    key: modelData.key
                    checked: annotator.tool.id === modelData.id
                    Accessible.name: modelData.name
                    onClicked: annotator.controller.setTool(modelData.id)
                }
            }
            Separator { anchors.verticalCenter: parent.verticalCenter }
            IconButton {
                symbol: annotator.tool.isVisible ? "eye" : "eye.slash"
                tip: annotator.tool.isVisible ? qsTr("Hide annotations") : qsTr("Show annotations")
                onClicked: annotator.controller.toggleVisibility()
            }
            IconButton {
                symbol: "square.stack.front"
                tip: qsTr("Bring to front")
                key: "Ctrl+]"
                enabled: annotator.tool.hasSelection
                onClicked: annotator.controller.bringToFront()
            }
            IconButton {
                symbol: "trash"
                tip: qsTr("Delete selected")
                key: "Del"
                enabled: annotator.tool.hasSelection
                onClicked: annotator.controller.deleteSelected()
            }
        }
        Row {
            spacing: 10
            Layout.alignment: Qt.AlignHCenter
            Row {
                spacing: 5
                anchors.verticalCenter: parent.verticalCenter
                Repeater {
                    model: annotator.controller.quickColors
                    Swatch {
                        required property var modelData
                        color: modelData
                        isCurrent: Qt.colorEqual(annotator.tool.color, modelData)
                        onClicked: annotator.controller.setToolColor(modelData)
                    }
                }
            }
            Separator { anchors.verticalCenter: parent.verticalCenter }
            Row {
                spacing: 2
                Repeater {
                    model: annotator.controller.choices.strokeSize
                    Basic.AbstractButton {
                        id: stroke
                        required property var modelData
                        required property int index
                        readonly property bool isCurrent: annotator.tool.strokeSize === modelData.id
                        implicitWidth: 28
                        implicitHeight: 28
                        focusPolicy: Qt.TabFocus
                        Accessible.name: modelData.name
                        Basic.ToolTip.visible: hovered
                        Basic.ToolTip.delay: 500
                        Basic.ToolTip.text: modelData.name
                        onClicked: annotator.controller.setStrokeSize(modelData.id)
                        background: Rectangle {
                            radius: Theme.radius
                            color: stroke.isCurrent ? Theme.pressed : stroke.hovered ? Theme.hover : "transparent"
                            border.width: stroke.visualFocus ? 2 : 0
                            border.color: Theme.accent
                        }
                        contentItem: Item {
                            Rectangle {
                                anchors.centerIn: parent
                                width: 5 + 3 * stroke.index
                                height: width
                                radius: width / 2
                                color: Theme.text
                            }
                        }
                    }
                }
            }
            Segments {
                visible: annotator.tool.showsFill
                width: 150
                rows: [{id: "stroke", name: qsTr("Outline")}, {id: "fill", name: qsTr("Fill")},
                    {id: "both", name: qsTr("Both")}]
                current: annotator.tool.fillMode
                onChosen: id => annotator.controller.setFillMode(id)
            }
            Segments {
                visible: annotator.tool.blurType !== undefined
                width: 190
                rows: [{id: "gaussian", name: qsTr("Gaussian")}, {id: "pixelate", name: qsTr("Pixelate")},
                    {id: "solid", name: qsTr("Solid")}]
                current: annotator.tool.blurType ?? ""
                onChosen: id => {
                    annotator.controller.setBlur(id, annotator.tool.blurIntensity)
                    annotator.controller.commitBlur()
                }
            }
            SliderRow {
                visible: annotator.tool.blurType !== undefined
                width: 120
                label: qsTr("Intensity")
                to: 1
                usual: 0.5
                factor: 100
                unit: " %"
                value: annotator.tool.blurIntensity ?? 0.5
                onMoved: value => annotator.controller.setBlur(annotator.tool.blurType, value)
                onSettled: annotator.controller.commitBlur()
            }
        }
    }
}
