import QtQuick

Text {
    font.pixelSize: Theme.captionSize
    font.weight: Font.Medium
    color: Theme.secondaryText
    elide: Text.ElideRight
}
