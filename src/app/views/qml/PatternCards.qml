import QtQuick
import QtQuick.Layouts
import Kestrio.App
import Kestrio.Ui

// What counts as private data.
ColumnLayout {
    id: cards
    required property PatternPanel panel
    Layout.fillWidth: true
    spacing: Theme.large

    component Note: Text {
        Layout.fillWidth: true
        font.pixelSize: Theme.captionSize
        color: Theme.secondaryText
        wrapMode: Text.Wrap
    }

    SettingsCard {
        title: qsTranslate("Kestrio", "Built-in Patterns")
        Note { text: qsTranslate("Kestrio", "These patterns detect common sensitive information types.") }
        Repeater {
            // Counted, so that a row stays while its values change.
            model: cards.panel.builtIn.length
            PatternRow {
                required property int index
                objectName: "pattern.builtIn." + index
                row: cards.panel.builtIn[index]
                onSwitched: isEnabled => cards.panel.setBuiltInEnabled(row.id, isEnabled)
            }
        }
    }
    SettingsCard {
        title: qsTranslate("Kestrio", "Custom Patterns")
        Note { text: qsTranslate("Kestrio", "Create your own patterns to detect custom data formats.") }
        Text {
            Layout.fillWidth: true
            visible: cards.panel.custom.length === 0
            text: qsTranslate("Kestrio", "No custom patterns yet")
            font.pixelSize: Theme.bodySize
            color: Theme.text
        }
        Note {
            visible: cards.panel.custom.length === 0
            text: qsTranslate("Kestrio", "Click 'Add Pattern' to create one")
        }
        Repeater {
            model: cards.panel.custom.length
            PatternRow {
                required property int index
                objectName: "pattern.custom." + index
                // The row goes before its place in the list does.
                row: cards.panel.custom[index] ?? { id: "", name: "", regex: "", description: "", isEnabled: false }
                isOwn: true
                onSwitched: isEnabled => cards.panel.setCustomEnabled(row.id, isEnabled)
                onEditRequested: cards.panel.edit(row.id)
                onRemoveRequested: cards.panel.remove(row.id)
            }
        }
        Note {
            visible: text !== "" && !cards.panel.isSheetShown
            text: cards.panel.error
            color: Theme.danger
        }
        Chip {
            objectName: "pattern.add"
            text: qsTranslate("Kestrio", "Add Pattern")
            onClicked: cards.panel.add()
        }
    }
    SettingsCard {
        title: qsTranslate("Kestrio", "Example Patterns")
        Note { text: qsTranslate("Kestrio", "Use these as templates for your own patterns.") }
        Repeater {
            model: cards.panel.examples
            RowLayout {
                id: example
                required property var modelData
                required property int index
                Layout.fillWidth: true
                spacing: Theme.small
                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 0
                    Text {
                        Layout.fillWidth: true
                        text: example.modelData.name
                        font.pixelSize: Theme.bodySize
                        color: Theme.text
                    }
                    Note { text: example.modelData.description }
                }
                Chip {
                    objectName: "pattern.example." + example.index
                    text: qsTranslate("Kestrio", "Use")
                    onClicked: cards.panel.useExample(example.modelData.id)
                }
            }
        }
    }
}
