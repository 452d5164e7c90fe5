import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// Takes a dropped picture: a file, or the bytes that another program drags.
DropArea {
    id: target
    required property EditorController controller
    readonly property var pictureFormats: ["image/png", "image/jpeg", "image/webp", "image/tiff", "image/bmp"]

    // Not the picture that is dragged out of this very window.
    onEntered: drag => drag.accepted = !drag.formats.includes("application/x-kestrio-picture")
    onDropped: drop => {
        const format = pictureFormats.find(each => drop.formats.includes(each))
        if (drop.hasUrls && drop.urls[0].toString().startsWith("file:")) controller.openFile(drop.urls[0])
        else if (format) controller.openData(drop.getDataAsArrayBuffer(format))
        else controller.refuseDrop()
        drop.accept(Qt.CopyAction)
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: 8
        visible: target.containsDrag
        color: Qt.alpha(Theme.accent, 0.13)
        border.color: Theme.accent
        border.width: 2
        radius: Theme.largeRadius
    }
}
