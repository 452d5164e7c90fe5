import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

Item {
    id: tab
    required property SettingsController controller

    ColumnLayout {
        anchors.centerIn: parent
        spacing: Theme.small
        Image {
            Layout.alignment: Qt.AlignHCenter
            source: "qrc:/kestrio/app/kestrio.svg"
            sourceSize: Qt.size(112, 112)
        }
        Text {
            Layout.alignment: Qt.AlignHCenter
            text: "Kestrio"
            font.pixelSize: 20
            font.weight: Font.DemiBold
            color: Theme.text
        }
        Text {
            Layout.alignment: Qt.AlignHCenter
            text: qsTranslate("Kestrio", "Version %1").arg(tab.controller.version)
            font.pixelSize: Theme.bodySize
            color: Theme.secondaryText
        }
        Text {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.small
            text: qsTranslate("Kestrio", "Screenshots worth showing.")
            font.pixelSize: Theme.bodySize
            color: Theme.text
        }
    }
}
