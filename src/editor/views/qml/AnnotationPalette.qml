import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// Tools, colour, stroke and fill, floating over the canvas.
Rectangle {
    id: annotator
    required property EditorController controller
    readonly property AnnotationPanel panel: controller.annotation
    readonly property annotationState tool: panel.tool

    implicitWidth: content.implicitWidth + 16
    implicitHeight: content.implicitHeight + 12
    radius: Theme.largeRadius
    color: Theme.surface
    border.color: Theme.hairline
    // The canvas under it hears no clicks that miss a button.
    MouseArea { anchors.fill: parent }

    ColumnLayout {
        id: content
        anchors.centerIn: parent
        spacing: 6

        Row {
            spacing: 2
            Layout.alignment: Qt.AlignHCenter
            Repeater {
                model: annotator.panel.tools
                IconButton {
                    required property var modelData
                    symbol: modelData.id
                    tip: modelData.description
                    key: modelData.key
                    checked: annotator.tool.id === modelData.id
                    Accessible.name: modelData.name
                    onClicked: annotator.panel.setTool(modelData.id)
                }
            }
            Separator { anchors.verticalCenter: parent.verticalCenter }
            IconButton {
                symbol: annotator.tool.isVisible ? "eye" : "eye.slash"
                tip: annotator.tool.isVisible ? qsTranslate("Kestrio", "Hide annotations") : qsTranslate("Kestrio", "Show annotations")
                onClicked: annotator.panel.toggleVisibility()
            }
            CommandButton {
                commands: annotator.controller.commands
                command: "bringToFront"
                symbol: "square.stack.front"
            }
            CommandButton {
                commands: annotator.controller.commands
                command: "sendToBack"
                symbol: "square.stack.back"
            }
            CommandButton {
                commands: annotator.controller.commands
                command: "delete"
                symbol: "trash"
            }
        }
        Row {
            spacing: 10
            Layout.alignment: Qt.AlignHCenter
            Row {
                spacing: 5
                anchors.verticalCenter: parent.verticalCenter
                Repeater {
                    model: annotator.panel.quickColors
                    Swatch {
                        required property var modelData
                        anchors.verticalCenter: parent.verticalCenter
                        color: modelData
                        isCurrent: Qt.colorEqual(annotator.tool.color, modelData)
                        onClicked: annotator.panel.setColor(modelData)
                    }
                }
                ColorWell {
                    anchors.verticalCenter: parent.verticalCenter
                    picking: annotator.controller.colors
                    color: annotator.tool.color
                    quick: annotator.panel.quickColors
                    tip: qsTranslate("Kestrio", "Any other colour")
                    onPicked: color => annotator.panel.setColor(color)
                }
            }
            Separator { anchors.verticalCenter: parent.verticalCenter }
            StrokePicker { panel: annotator.panel }
            Segments {
                visible: annotator.tool.showsFill
                width: 150
                rows: annotator.panel.fillModes
                current: annotator.tool.fillMode
                onChosen: id => annotator.panel.setFillMode(id)
            }
            Segments {
                visible: annotator.tool.hasBlur
                width: 190
                rows: annotator.panel.blurTypes
                current: annotator.tool.blurType
                onChosen: id => {
                    annotator.panel.setBlur(id, annotator.tool.blurIntensity)
                    annotator.panel.commitBlur()
                }
            }
            SliderRow {
                visible: annotator.tool.hasBlur
                width: 120
                label: qsTranslate("Kestrio", "Intensity")
                to: 1
                usual: 0.5
                factor: 100
                unit: " %"
                value: annotator.tool.blurIntensity
                onMoved: value => annotator.panel.setBlur(annotator.tool.blurType, value)
                onSettled: annotator.panel.commitBlur()
            }
        }
        Row {
            spacing: 2
            visible: annotator.tool.selectedCount > 1
            Layout.alignment: Qt.AlignHCenter
            Repeater {
                model: annotator.panel.alignments
                IconButton {
                    required property var modelData
                    symbol: modelData.symbol
                    tip: modelData.name
                    enabled: annotator.tool.selectedCount >= modelData.least
                    onClicked: annotator.panel.align(modelData.id)
                }
            }
        }
    }
}
