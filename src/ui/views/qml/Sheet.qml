import QtQuick
import QtQuick.Layouts

// A dialog over the dimmed canvas. Escape and a click beside it close it unless it is busy.
Rectangle {
    id: sheet

    property bool isShown: false
    property bool isBusy: false
    property string title
    property string closeName
    property int sheetWidth: 400
    default property alias content: body.data
    signal closed()

    function open() { isShown = true }
    function close() {
        if (isBusy) return
        isShown = false
        closed()
    }

    anchors.fill: parent
    visible: opacity > 0
    opacity: isShown ? 1 : 0
    color: Theme.dim
    Behavior on opacity { NumberAnimation { duration: Theme.motion } }
    onIsShownChanged: if (isShown) panel.forceActiveFocus()
    Accessible.role: Accessible.Dialog
    Accessible.name: title

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onClicked: sheet.close()
        onWheel: wheel => wheel.accepted = true
    }
    FocusScope {
        id: panel
        anchors.centerIn: parent
        width: Math.min(sheet.sheetWidth, parent.width - 2 * Theme.huge)
        height: column.implicitHeight + 2 * Theme.huge
        focus: sheet.isShown
        Keys.onEscapePressed: sheet.close()
        // Nothing behind the sheet hears what it does not take.
        Keys.onPressed: event => event.accepted = true

        Rectangle {
            anchors.fill: parent
            radius: Theme.largeRadius
            color: Theme.surface
            border.color: Theme.hairline
        }
        MouseArea { anchors.fill: parent }
        ColumnLayout {
            id: column
            x: Theme.huge
            y: Theme.huge
            width: parent.width - 2 * Theme.huge
            spacing: Theme.large
            RowLayout {
                Layout.fillWidth: true
                Text {
                    Layout.fillWidth: true
                    text: sheet.title
                    font.pixelSize: Theme.titleSize
                    font.weight: Font.DemiBold
                    color: Theme.text
                }
                IconButton {
                    objectName: sheet.closeName
                    symbol: "xmark"
                    tip: qsTranslate("Kestrio", "Close")
                    key: "Esc"
                    enabled: !sheet.isBusy
                    implicitWidth: 28
                    implicitHeight: 28
                    onClicked: sheet.close()
                }
            }
            ColumnLayout {
                id: body
                Layout.fillWidth: true
                spacing: Theme.medium
            }
        }
    }
}
