import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Kestrio.Ui

// A tab's content, scrolled where the window is too low for it.
Flickable {
    id: page
    default property alias content: column.data
    contentHeight: column.implicitHeight + 2 * Theme.large
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    Basic.ScrollBar.vertical: Basic.ScrollBar {}

    ColumnLayout {
        id: column
        x: Theme.huge
        y: Theme.large
        width: page.width - 2 * Theme.huge
        spacing: Theme.large
    }
}
