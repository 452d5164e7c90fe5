import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

// What went wrong, or what has to be done for a change to count, below the tabs.
Rectangle {
    id: bar
    required property SettingsController controller
    readonly property bool isFailure: controller.message !== ""
    readonly property string words: isFailure ? controller.message
        : controller.needsRestart ? qsTranslate("Kestrio", "Restart Kestrio to change its language.") : ""

    visible: words !== ""
    implicitHeight: visible ? label.implicitHeight + Theme.large : 0
    color: isFailure ? Theme.danger : Theme.well
    Accessible.role: Accessible.AlertMessage
    Accessible.name: words
    Text {
        id: label
        x: Theme.huge
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width - 2 * Theme.huge
        text: bar.words
        font.pixelSize: Theme.bodySize
        color: bar.isFailure ? Theme.accentText : Theme.text
        wrapMode: Text.Wrap
    }
}
