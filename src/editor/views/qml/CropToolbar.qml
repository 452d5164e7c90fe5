import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

Rectangle {
    id: bar
    required property CropPanel crop
    required property CommandPanel commands
    property var ratios: []
    // How wide it may become; hints and ratios give way first.
    property real room: 2000
    width: tools.implicitWidth + 24
    height: 44
    radius: Theme.largeRadius
    color: Theme.surface
    border.color: Theme.hairline
    MouseArea { anchors.fill: parent }

    RowLayout {
        id: tools
        anchors.centerIn: parent
        spacing: Theme.small
        Caption {
            visible: bar.room > 460
            text: qsTranslate("Kestrio", "Drag handles   Return Apply   Esc Cancel")
        }
        Repeater {
            model: bar.ratios
            Chip {
                required property var modelData
                visible: modelData.ratio > 0 && bar.room > 800
                text: modelData.name
                isCurrent: Math.abs(bar.crop.ratio - modelData.ratio) < 0.001
                onClicked: bar.crop.lockRatio(isCurrent ? 0 : modelData.ratio)
            }
        }
        Chip {
            text: bar.crop.ratio > 0 ? qsTranslate("Kestrio", "Ratio Locked") : qsTranslate("Kestrio", "Free Ratio")
            isCurrent: bar.crop.ratio > 0
            onClicked: bar.crop.toggleRatio()
        }
        IconButton {
            symbol: "arrow.counterclockwise"
            tip: qsTranslate("Kestrio", "The whole picture again")
            onClicked: bar.crop.reset()
        }
        IconButton {
            symbol: "xmark"
            tip: qsTranslate("Kestrio", "Cancel")
            key: bar.commands.key("cancelCrop")
            onClicked: bar.crop.cancel()
        }
        IconButton {
            symbol: "checkmark"
            isPrimary: true
            tip: qsTranslate("Kestrio", "Apply")
            key: bar.commands.key("applyCrop")
            onClicked: bar.crop.apply()
        }
    }
}
