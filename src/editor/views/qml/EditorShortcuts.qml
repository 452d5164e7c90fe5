import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// Commands of the whole window. Text fields take those that mean something to them first.
Item {
    id: commands
    required property EditorController controller
    signal saveRequested()
    signal shareRequested()

    Shortcut {
        enabled: commands.enabled
        sequences: [StandardKey.Undo]
        onActivated: commands.controller.undoByKey()
    }
    Shortcut {
        enabled: commands.enabled
        sequences: ["Ctrl+Shift+Z", "Ctrl+Y"]
        onActivated: commands.controller.redoByKey()
    }
    Shortcut {
        enabled: commands.enabled
        sequences: [StandardKey.Save]
        onActivated: commands.saveRequested()
    }
    Shortcut {
        enabled: commands.enabled
        sequence: "Ctrl+Shift+E"
        onActivated: commands.shareRequested()
    }
    Shortcut {
        enabled: commands.enabled
        sequences: [StandardKey.Copy]
        onActivated: commands.controller.output.copy()
    }
    Shortcut {
        enabled: commands.enabled
        sequence: "Ctrl+P"
        onActivated: if (commands.controller.output.canPin) commands.controller.output.pin()
    }
    Shortcut {
        enabled: commands.enabled
        sequences: [StandardKey.Paste]
        onActivated: commands.controller.paste()
    }
    Shortcut {
        enabled: commands.enabled
        sequences: [StandardKey.ZoomIn, "Ctrl+="]
        onActivated: commands.controller.zoomBy(1.25)
    }
    Shortcut {
        enabled: commands.enabled
        sequences: [StandardKey.ZoomOut]
        onActivated: commands.controller.zoomBy(0.8)
    }
    Shortcut {
        enabled: commands.enabled
        sequence: "Ctrl+0"
        onActivated: commands.controller.zoomToFit()
    }
}
