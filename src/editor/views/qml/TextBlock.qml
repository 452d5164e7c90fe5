import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

// A block of recognised text with its translation.
Rectangle {
    id: block
    required property TextPanel panel
    required property int index
    required property string content
    required property bool isCode
    required property string codeLanguage
    required property bool isSelected
    required property string translated
    required property string statusText
    required property bool canTranslateAnyway
    property bool isCurrent: false

    implicitHeight: column.implicitHeight + 16
    radius: Theme.radius
    color: Theme.raised
    border.width: isCurrent ? 2 : 1
    border.color: isCurrent || isSelected ? Theme.accent : Theme.hairline
    Accessible.role: Accessible.ListItem
    Accessible.name: content

    ColumnLayout {
        id: column
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.leftMargin: 10
        anchors.rightMargin: 4
        spacing: 2

        Caption {
            visible: block.isCode
            text: block.codeLanguage ? qsTranslate("Kestrio", "Code · %1").arg(block.codeLanguage) : qsTranslate("Kestrio", "Code")
            color: Theme.accent
        }
        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.tiny
            Text {
                objectName: "ocr.translation.originalText"
                Layout.fillWidth: true
                text: block.content
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                font.pixelSize: Theme.bodySize
                font.family: block.isCode ? "monospace" : Qt.application.font.family
                color: Theme.text
            }
            IconButton {
                Layout.alignment: Qt.AlignTop
                implicitHeight: 26
                symbol: "doc.on.doc"
                tip: qsTranslate("Kestrio", "Copy this block")
                onClicked: block.panel.copyBlock(block.index)
            }
        }
        RowLayout {
            visible: block.translated !== ""
            Layout.fillWidth: true
            spacing: Theme.tiny
            Rectangle {
                Layout.fillHeight: true
                implicitWidth: 2
                color: Theme.accent
            }
            Text {
                objectName: "ocr.translation.translatedText"
                Layout.fillWidth: true
                Layout.leftMargin: Theme.tiny
                text: block.translated
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                font.pixelSize: Theme.bodySize
                color: Theme.text
            }
            IconButton {
                Layout.alignment: Qt.AlignTop
                implicitHeight: 26
                symbol: "doc.on.doc"
                tip: qsTranslate("Kestrio", "Copy Translation")
                onClicked: block.panel.copyTranslation(block.index)
            }
        }
        RowLayout {
            visible: block.statusText !== ""
            Layout.fillWidth: true
            spacing: Theme.small
            Caption {
                Layout.fillWidth: true
                text: block.statusText
                wrapMode: Text.Wrap
            }
            Chip {
                visible: block.canTranslateAnyway
                text: qsTranslate("Kestrio", "Translate Anyway")
                onClicked: block.panel.translateAnyway(block.index)
            }
        }
    }
}
