import QtQuick
import Kestrio.Scrolling
import Kestrio.Ui

// The newest frame, and how much of the long picture it is.
Rectangle {
    id: preview
    required property ScrollingStatusModel model
    radius: Theme.radius
    color: Theme.well

    FrameThumbnailItem {
        id: thumbnail
        objectName: "scrolling.thumbnail"
        anchors { fill: parent; margins: Theme.tiny; rightMargin: indicator.width + 2 * Theme.tiny }
        picture: preview.model.thumbnail
    }
    Text {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.large
        visible: thumbnail.isEmpty
        text: qsTranslate("Kestrio", "Waiting for capture...")
        font.pixelSize: Theme.captionSize
        color: Theme.secondaryText
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
    ScrollIndicatorItem {
        id: indicator
        anchors { right: parent.right; top: parent.top; bottom: parent.bottom; margins: Theme.tiny }
        width: implicitWidth
        visible: !thumbnail.isEmpty
        position: preview.model.indicator
        trackColor: Theme.pressed
        thumbColor: Theme.accent
    }
}
