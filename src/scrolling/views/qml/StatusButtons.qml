import QtQuick
import QtQuick.Layouts
import Kestrio.Scrolling
import Kestrio.Ui

// What can be done with a long capture, each above the key that does the same.
GridLayout {
    id: buttons
    required property ScrollingStatusModel model
    columns: 2
    columnSpacing: Theme.small
    rowSpacing: 2

    component KeyLine: Caption {
        Layout.fillWidth: true
        Layout.minimumWidth: implicitWidth
        horizontalAlignment: Text.AlignHCenter
        opacity: buttons.model.isPressable ? 1 : 0.38
    }

    IconButton {
        objectName: "scrolling.cancel"
        text: qsTranslate("Kestrio", "Cancel")
        tip: qsTranslate("Kestrio", "Throw away what was captured")
        enabled: buttons.model.isPressable
        onClicked: buttons.model.pressCancel()
    }
    IconButton {
        objectName: "scrolling.primary"
        Layout.fillWidth: true
        text: buttons.model.primaryTitle
        tip: buttons.model.primaryTip
        isPrimary: true
        enabled: buttons.model.isPressable
        onClicked: buttons.model.pressPrimary()
    }
    KeyLine { text: qsTranslate("Kestrio", "Esc to cancel") }
    KeyLine { text: buttons.model.primaryKey }
}
