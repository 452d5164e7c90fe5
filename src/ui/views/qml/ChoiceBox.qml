import QtQuick
import QtQuick.Controls.Basic as Basic

// One of many names, from a list that opens below.
Basic.ComboBox {
    id: box
    property string name
    property var choices: []
    property string current
    signal chosen(string choice)

    model: choices
    implicitHeight: 30
    focusPolicy: Qt.TabFocus
    displayText: current
    currentIndex: choices.indexOf(current)
    Accessible.name: name
    font.pixelSize: Theme.bodySize
    onActivated: index => chosen(choices[index])
    contentItem: Text {
        leftPadding: 10
        text: box.displayText
        font: box.font
        color: Theme.text
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    indicator: Symbol {
        x: box.width - width - 8
        y: (box.height - height) / 2
        size: 14
        name: "chevron.down"
        color: Theme.secondaryText
    }
    background: Rectangle {
        radius: Theme.radius
        color: Theme.raised
        border.width: box.visualFocus || box.down ? 2 : 1
        border.color: box.visualFocus || box.down ? Theme.accent : Theme.hairline
    }
    delegate: Basic.ItemDelegate {
        id: line
        required property string modelData
        required property int index
        width: ListView.view ? ListView.view.width : box.width
        height: 28
        highlighted: box.highlightedIndex === index
        contentItem: Text {
            text: line.modelData
            font.pixelSize: Theme.bodySize
            color: Theme.text
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle {
            radius: Theme.radius
            color: line.highlighted ? Theme.hover : "transparent"
        }
    }
    popup: Basic.Popup {
        y: box.height + 2
        width: box.width
        height: Math.min(contentItem.implicitHeight + 8, 280)
        padding: 4
        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            model: box.delegateModel
            currentIndex: box.highlightedIndex
            Basic.ScrollBar.vertical: Basic.ScrollBar {}
        }
        background: Rectangle {
            radius: Theme.radius
            color: Theme.surface
            border.color: Theme.hairline
        }
    }
}
