import QtQuick
import QtQuick.Layouts
import Kestrio.Ui

// A sentence for which a number of lines is kept, so that nothing moves when it changes.
Text {
    id: line
    property int lineCount: 2
    Layout.preferredHeight: lineCount * Math.ceil(metrics.lineSpacing)
    maximumLineCount: lineCount
    wrapMode: Text.Wrap
    elide: Text.ElideRight
    textFormat: Text.PlainText
    font.pixelSize: Theme.captionSize

    FontMetrics { id: metrics; font: line.font }
}
