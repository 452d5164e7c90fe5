import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// The button of a command, with its tooltip and key.
IconButton {
    required property CommandPanel commands
    required property string command
    tip: commands.title(command)
    key: commands.key(command)
    enabled: commands.revision >= 0 && commands.isEnabled(command)
    onClicked: commands.run(command)
}
