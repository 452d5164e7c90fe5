import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Kestrio.Editor
import Kestrio.Ui

// The text of the picture, block by block or as a whole, and its translation.
Rectangle {
    id: results
    objectName: "ocr.translation.panel"
    required property TextPanel panel
    required property CommandPanel commands
    // The edge beside the canvas was dragged this far away from the panel, in points.
    signal widened(real by)
    color: Theme.surface
    Accessible.role: Accessible.Pane
    Accessible.name: qsTranslate("Kestrio", "OCR & Translation")
    Component.onCompleted: panel.loadLanguages()

    Rectangle {
        anchors.left: parent.left
        width: 1
        height: parent.height
        color: Theme.hairline
    }
    ColumnLayout {
        anchors.fill: parent
        anchors.leftMargin: 1
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.large
            Layout.rightMargin: Theme.small
            Layout.topMargin: Theme.small
            Text {
                Layout.fillWidth: true
                text: qsTranslate("Kestrio", "OCR & Translation")
                textFormat: Text.PlainText
                font.pixelSize: Theme.titleSize
                font.weight: Font.DemiBold
                color: Theme.text
                elide: Text.ElideRight
            }
            CommandButton {
                commands: results.commands
                command: "readRegion"
                symbol: "viewfinder"
                checked: results.panel.isChoosing
            }
            IconButton {
                symbol: "doc.on.doc"
                tip: qsTranslate("Kestrio", "Copy All")
                onClicked: results.panel.copyAll()
            }
            IconButton {
                symbol: "xmark"
                tip: qsTranslate("Kestrio", "Close")
                onClicked: results.panel.isShown = false
            }
        }
        Segments {
            Layout.fillWidth: true
            Layout.margins: Theme.medium
            Layout.topMargin: Theme.tiny
            rows: results.panel.displayModes
            current: results.panel.displayMode
            onChosen: id => results.panel.displayMode = id
        }
        Loader {
            Layout.fillWidth: true
            Layout.fillHeight: true
            sourceComponent: results.panel.displayMode === "blocks" ? blockList : wholeText
        }
        TextTranslation {
            Layout.fillWidth: true
            panel: results.panel
        }
    }
    Component {
        id: blockList
        ListView {
            id: list
            objectName: "textBlocks"
            leftMargin: Theme.medium
            rightMargin: Theme.medium
            bottomMargin: Theme.medium
            spacing: 6
            clip: true
            activeFocusOnTab: true
            keyNavigationEnabled: true
            boundsBehavior: Flickable.StopAtBounds
            model: results.panel.blocks
            currentIndex: -1
            onActiveFocusChanged: if (activeFocus && currentIndex < 0 && count > 0) currentIndex = 0
            Keys.onReturnPressed: if (currentIndex >= 0) results.panel.copyBlock(currentIndex)
            Basic.ScrollBar.vertical: Basic.ScrollBar {}
            Accessible.role: Accessible.List
            Accessible.name: qsTranslate("Kestrio", "Blocks")
            delegate: TextBlock {
                width: ListView.view.width - 2 * Theme.medium
                panel: results.panel
                isCurrent: ListView.isCurrentItem && list.activeFocus
            }
        }
    }
    Component {
        id: wholeText
        Basic.ScrollView {
            id: scroll
            contentWidth: availableWidth
            ColumnLayout {
                width: scroll.availableWidth
                spacing: Theme.medium
                WholeText {
                    objectName: "ocr.translation.originalText"
                    Layout.fillWidth: true
                    Layout.leftMargin: Theme.medium
                    Layout.rightMargin: Theme.medium
                    name: qsTranslate("Kestrio", "Full Text")
                    text: results.panel.fullText
                }
                WholeText {
                    objectName: "ocr.translation.translatedText"
                    Layout.fillWidth: true
                    Layout.leftMargin: Theme.medium
                    Layout.rightMargin: Theme.medium
                    Layout.bottomMargin: Theme.medium
                    visible: text !== ""
                    name: qsTranslate("Kestrio", "Translation")
                    text: results.panel.fullTranslation
                }
            }
        }
    }
    MouseArea {
        property real start
        readonly property int outward: LayoutMirroring.enabled ? 1 : -1
        anchors.left: parent.left
        width: 6
        height: parent.height
        cursorShape: Qt.SplitHCursor
        onPressed: mouse => start = mouse.x
        onPositionChanged: mouse => results.widened((mouse.x - start) * outward)
    }
}
