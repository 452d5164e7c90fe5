import QtQuick
import QtQml
import Kestrio.Editor

// Keys of the whole window. Text fields take those that mean something to them first.
Instantiator {
    id: shortcuts
    required property CommandPanel commands
    property bool enabled: true

    model: commands.shortcuts
    delegate: Shortcut {
        required property var modelData
        enabled: shortcuts.enabled || modelData.id === "close"
        sequences: modelData.keys
        onActivated: shortcuts.commands.runByKey(modelData.id)
    }
}
