import QtQuick

// A short word that slides in and leaves by itself; failures stay until they are clicked away.
Rectangle {
    id: toast
    property bool isFailure: false
    property string text
    property bool isShown: false
    property int bottomGap: 128

    function show(words, failure) {
        text = words
        isFailure = failure
        isShown = true
        if (failure) leaving.stop()
        else leaving.restart()
    }

    width: Math.min(label.implicitWidth + 36, parent ? parent.width - 80 : 400)
    height: label.height + 20
    radius: Theme.largeRadius
    color: isFailure ? Theme.danger : Theme.note
    anchors.horizontalCenter: parent ? parent.horizontalCenter : undefined
    y: parent ? parent.height - height - bottomGap + (isShown ? 0 : 20) : 0
    visible: opacity > 0
    opacity: isShown ? 1 : 0
    Behavior on y { NumberAnimation { duration: Theme.motion; easing.type: Easing.OutCubic } }
    Behavior on opacity { NumberAnimation { duration: Theme.motion } }
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Text {
        id: label
        anchors.centerIn: parent
        width: Math.min(implicitWidth, toast.parent ? toast.parent.width - 116 : 360)
        text: toast.text
        color: Theme.noteText
        font.pixelSize: Theme.bodySize
        wrapMode: Text.Wrap
    }
    TapHandler { onTapped: toast.isShown = false }
    Timer {
        id: leaving
        interval: 2200
        onTriggered: toast.isShown = false
    }
}
