import QtQuick
import QtQuick.Layouts
import Kestrio.Ui

// A group of settings that belong together, under an optional heading.
ColumnLayout {
    id: card
    property string title
    default property alias content: rows.data
    Layout.fillWidth: true
    spacing: 6

    Caption {
        visible: card.title !== ""
        text: card.title
        leftPadding: Theme.tiny
    }
    Rectangle {
        Layout.fillWidth: true
        implicitHeight: rows.implicitHeight + Theme.large
        radius: Theme.largeRadius
        color: Theme.surface
        border.color: Theme.hairline
        ColumnLayout {
            id: rows
            x: Theme.large
            y: Theme.small
            width: parent.width - 2 * Theme.large
            spacing: Theme.small
        }
    }
}
