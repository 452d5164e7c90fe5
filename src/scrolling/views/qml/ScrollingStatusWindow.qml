import QtQuick
import QtQuick.Layouts
import Kestrio.Scrolling
import Kestrio.Ui

// The state of a long capture, beside its region.
Window {
    id: window
    required property ScrollingStatusModel model
    required property Appearance appearance
    required property bool isTranslucent

    width: 264
    height: content.implicitHeight + 2 * Theme.medium
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint
    title: qsTranslate("Kestrio", "Scrolling Capture")
    color: isTranslucent ? "transparent" : Theme.surface
    // Its owner shows it once it is placed.
    visible: false
    // It goes when the capture ends; the keys of window managers can close it before.
    onClosing: close => {
        close.accepted = false
        window.model.pressCancel()
    }
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Binding { target: Theme; property: "isDark"; value: window.appearance.isDark }
    Binding { target: Theme; property: "isMotionReduced"; value: window.appearance.isMotionReduced }

    Rectangle {
        anchors.fill: parent
        // Corners are smooth only where the desktop lets shine through what they leave free.
        radius: window.isTranslucent ? Theme.largeRadius : 0
        color: Theme.surface
        border.color: Theme.hairline
    }
    ColumnLayout {
        id: content
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.medium }
        spacing: Theme.small

        RowLayout {
            Layout.fillWidth: true
            spacing: 6
            Symbol { name: "viewfinder"; size: 16; color: Theme.accent }
            Text {
                Layout.fillWidth: true
                text: window.title
                font.pixelSize: Theme.bodySize
                font.weight: Font.DemiBold
                color: Theme.text
                elide: Text.ElideRight
            }
        }
        StatusLine {
            Layout.fillWidth: true
            text: window.model.status
            color: Theme.secondaryText
        }
        FramePreview {
            Layout.fillWidth: true
            Layout.preferredHeight: 124
            model: window.model
        }
        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.tiny
            Text {
                objectName: "scrolling.progress"
                Layout.fillWidth: true
                text: window.model.progress
                font.pixelSize: Theme.captionSize
                font.weight: Font.Medium
                color: Theme.text
                elide: Text.ElideRight
            }
            Symbol { visible: window.model.isBottomReached; name: "checkmark"; size: 13; color: Theme.success }
            Text {
                visible: window.model.isBottomReached
                text: qsTranslate("Kestrio", "Bottom reached")
                font.pixelSize: Theme.captionSize
                color: Theme.success
            }
        }
        StatusLine {
            Layout.fillWidth: true
            text: window.model.hint
            color: Theme.danger
            Accessible.role: Accessible.AlertMessage
        }
        StatusButtons {
            Layout.fillWidth: true
            model: window.model
        }
    }
    // For where the keys are not taken from all windows.
    Shortcut { sequences: ["Return", "Enter"]; onActivated: window.model.pressPrimary() }
    Shortcut { sequence: "Esc"; onActivated: window.model.pressCancel() }
}
