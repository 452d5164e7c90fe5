import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// How private data is covered, with what each way is worth.
Basic.Popup {
    id: popover
    required property EditorController controller
    readonly property RedactionPanel panel: controller.redaction
    objectName: "redaction.kinds"
    width: 300
    padding: Theme.medium
    margins: Theme.small
    focus: true
    background: Rectangle {
        radius: Theme.largeRadius
        color: Theme.surface
        border.color: Theme.hairline
    }
    contentItem: ColumnLayout {
        spacing: Theme.medium

        Caption { text: qsTranslate("Kestrio", "Cover sensitive information with") }
        Segments {
            objectName: "redaction.kind"
            Layout.fillWidth: true
            rows: popover.panel.kinds
            current: popover.panel.kind
            onChosen: id => popover.panel.kind = id
        }
        Text {
            objectName: "redaction.notice"
            Layout.fillWidth: true
            text: popover.panel.isReversible
                ? qsTranslate("Kestrio", "Text under a blur or a mosaic can be reconstructed by somebody who tries. Choose Solid for what must stay secret.")
                : qsTranslate("Kestrio", "Nothing of what a solid mark covers is left in the finished picture.")
            font.pixelSize: Theme.captionSize
            color: popover.panel.isReversible ? Theme.danger : Theme.secondaryText
            wrapMode: Text.Wrap
        }
        Text {
            Layout.fillWidth: true
            text: qsTranslate("Kestrio", "Look at the picture afterwards: not everything is recognised.")
            font.pixelSize: Theme.captionSize
            color: Theme.secondaryText
            wrapMode: Text.Wrap
        }
        IconButton {
            objectName: "redaction.start"
            Layout.alignment: Qt.AlignRight
            symbol: "redact"
            text: qsTranslate("Kestrio", "Redact")
            isPrimary: true
            onClicked: {
                popover.close()
                popover.controller.commands.run("redact")
            }
        }
    }
}
