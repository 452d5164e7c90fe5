import QtQuick
import Kestrio.Editor
import Kestrio.Ui

// The button of a command, with its tooltip and key.
IconButton {
    required property CommandPanel commands
    required property string command
    tip: commands.infos[command].title
    key: commands.infos[command].key
    enabled: commands.enabled[command]
    onClicked: commands.run(command)
}
