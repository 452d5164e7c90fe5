import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// The mark's picture: chosen, or dropped here.
Rectangle {
    id: controls
    required property EditorController controller
    implicitHeight: 64
    radius: Theme.radius
    color: drop.containsDrag ? Theme.pressed : Theme.well
    border.color: drop.containsDrag ? Theme.accent : Theme.hairline

    RowLayout {
        anchors.fill: parent
        anchors.margins: Theme.small
        spacing: Theme.small
        Image {
            Layout.preferredWidth: 64
            Layout.fillHeight: true
            visible: source.toString() !== ""
            source: controls.controller.watermark.picture
            sourceSize: Qt.size(128, 96)
            fillMode: Image.PreserveAspectFit
        }
        IconButton {
            Layout.fillWidth: true
            symbol: "photo"
            text: qsTranslate("Kestrio", "Choose picture…")
            tip: qsTranslate("Kestrio", "Or drop a picture here")
            onClicked: controls.controller.chooseWatermarkImage()
        }
    }
    DropArea {
        id: drop
        anchors.fill: parent
        onDropped: drop => {
            if (drop.hasUrls) controls.controller.watermark.setPicture(drop.urls[0])
            else controls.controller.refuseDrop()
        }
    }
}
