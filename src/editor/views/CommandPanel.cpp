#include "editor/views/CommandPanel.h"

#include "editor/keyboard/ShortcutInfo.h"

namespace kestrio {

CommandPanel::CommandPanel(EditorViewModel& editor, ShortcutHintManager& hints, Panels panels,
                           QObject* parent)
    : QObject(parent),
      editor_(editor),
      hints_(hints),
      panels_(panels),
      keyboard_(editor, *this, &hints) {
    keyboard_.activate();
    using Editor = EditorViewModel;
    for (const auto signal : {&Editor::canUndoChanged, &Editor::canRedoChanged,
                              &Editor::isShortcutOverlayVisibleChanged, &Editor::screenshotChanged})
        connect(&editor, signal, this, &CommandPanel::refreshEnabled);
    connect(&editor.annotationSession(), &AnnotationSession::isAnnotationModeChanged, this,
            &CommandPanel::refreshEnabled);
    connect(&editor.annotationVM(), &AnnotationViewModel::selectedAnnotationChanged, this,
            &CommandPanel::refreshEnabled);
    connect(&editor.autoRedaction(), &AutoRedaction::isScanningChanged, this,
            &CommandPanel::refreshEnabled);
    using Text = OCRViewModel;
    for (const auto signal : {&Text::isScanningChanged, &Text::showResultsPanelChanged,
                              &Text::isRegionSelectionModeChanged})
        connect(&editor.ocrVM(), signal, this, &CommandPanel::refreshEnabled);
    connect(&panels.output, &OutputPanel::busyChanged, this, &CommandPanel::refreshEnabled);
    connect(&panels.share, &SharePanel::busyChanged, this, &CommandPanel::refreshEnabled);
}

// Most of what is watched changes with every move of a drag; views are only told of a difference.
void CommandPanel::refreshEnabled() {
    std::vector<bool> enabled;
    for (const EditorCommand& each : editorCommands())
        enabled.push_back(kestrio::isEnabled(each, editor_, *this));
    if (std::exchange(enabled_, enabled) == enabled) return;
    ++revision_;
    Q_EMIT enabledChanged();
}

QString CommandPanel::title(const QString& id) const {
    const EditorCommand* const command = editorCommand(id);
    return command ? Kestrio::tr(command->title) : QString();
}

QString CommandPanel::key(const QString& id) const {
    const EditorCommand* const command = editorCommand(id);
    return command ? keysOf(*command).front().toString() : QString();
}

bool CommandPanel::isEnabled(const QString& id) const {
    const EditorCommand* const command = editorCommand(id);
    return command && kestrio::isEnabled(*command, editor_, *this);
}

QVariantList CommandPanel::shortcuts() const {
    QVariantList rows;
    for (const EditorCommand& each : editorCommands()) {
        if (each.scope != CommandScope::window) continue;
        QStringList keys;
        for (const QKeySequence& sequence : keysOf(each))
            keys << sequence.toString();
        rows << QVariantMap{{QStringLiteral("id"), QString::fromLatin1(each.id)},
                            {QStringLiteral("keys"), keys}};
    }
    return rows;
}

QVariantList CommandPanel::columns() const {
    const auto category = [](const auto& heading) {
        QVariantList rows;
        for (const ShortcutInfo& info : ShortcutInfo::all(heading.value)) {
            rows << QVariantMap{{QStringLiteral("shortcut"), info.shortcut},
                                {QStringLiteral("description"), info.description}};
        }
        return QVariantMap{{QStringLiteral("name"), Kestrio::tr(heading.name)},
                           {QStringLiteral("rows"), rows}};
    };
    // The tools share a column with what selects; both columns are about as long then.
    QVariantList first, second;
    for (const auto& heading : shortcutCategories) {
        const bool isFirst = heading.value == ShortcutCategory::tools ||
                             heading.value == ShortcutCategory::selection;
        (isFirst ? first : second) << category(heading);
    }
    return {QVariant(first), QVariant(second)};
}

bool CommandPanel::runEnabled(const QString& id) {
    const EditorCommand* const command = editorCommand(id);
    if (!command || !command->run || !isEnabled(id)) return false;
    command->run(editor_, *this);
    return true;
}

void CommandPanel::run(const QString& id) {
    if (!runEnabled(id)) return;
    if (const auto tip = hints_.takeHint(id)) editor_.set_toastMessage(*tip);
}

void CommandPanel::runByKey(const QString& id) {
    if (runEnabled(id)) hints_.recordShortcutUsed(id);
}

}  // namespace kestrio
