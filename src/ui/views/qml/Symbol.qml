import QtQuick
import QtQuick.Controls.impl as Impl

// One of our icons, tinted.
Item {
    id: symbol
    property string name
    property color color: Theme.text
    property int size: 20
    implicitWidth: size
    implicitHeight: size

    Impl.IconImage {
        anchors.fill: parent
        source: symbol.name === "" ? "" : Theme.icon(symbol.name)
        sourceSize: Qt.size(symbol.size, symbol.size)
        color: symbol.color
    }
}
