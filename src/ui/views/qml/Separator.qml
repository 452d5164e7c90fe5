import QtQuick

Rectangle {
    implicitWidth: 1
    implicitHeight: 22
    color: Theme.hairline
}
