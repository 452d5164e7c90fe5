import QtQuick
import QtQuick.Controls.Basic as Basic

// The tooltip of a control, with the key that does the same. Made when it is wanted: a window has
// more controls than tooltips are ever seen.
Loader {
    id: hint
    property string key
    property bool isWanted: false
    property string words
    active: isWanted && words !== ""
    sourceComponent: Basic.ToolTip {
        id: tip
        parent: hint.parent
        delay: 500
        text: hint.key ? hint.words + "   " + keys.nativeText : hint.words
        padding: 6
        leftPadding: 9
        rightPadding: 9
        contentItem: Text {
            text: tip.text
            font.pixelSize: Theme.captionSize
            color: Theme.noteText
        }
        background: Rectangle {
            radius: Theme.radius
            color: Theme.note
        }
        // It knows what keys are called in the user's language.
        Shortcut { id: keys; enabled: false; sequence: hint.key }
        Component.onCompleted: visible = true
    }
}
