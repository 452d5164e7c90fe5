import QtQuick

// A sheet that is made when it is first opened.
Loader {
    id: lazy
    anchors.fill: parent
    active: false
    readonly property bool isShown: item !== null && item.isShown
    readonly property bool isBusy: item !== null && item.isBusy
    function open() {
        active = true
        item.open()
    }
}
