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
                              &Editor::isShortcutOverlayVisibleChanged})
        connect(&editor, signal, this, &CommandPanel::enabledChanged);
    connect(&editor.annotationSession(), &AnnotationSession::isAnnotationModeChanged, this,
            &CommandPanel::enabledChanged);
    connect(&editor.annotationVM(), &AnnotationViewModel::selectedAnnotationChanged, this,
            &CommandPanel::enabledChanged);
    connect(&panels.output, &OutputPanel::busyChanged, this, &CommandPanel::enabledChanged);
    connect(&panels.share, &SharePanel::busyChanged, this, &CommandPanel::enabledChanged);
}

QVariantMap CommandPanel::infos() const {
    QVariantMap infos;
    for (const EditorCommand& each : editorCommands()) {
        const bool hasKey = each.scope != CommandScope::pointer;
        infos.insert(QString::fromLatin1(each.id),
                     QVariantMap{{QStringLiteral("title"), Kestrio::tr(each.title)},
                                 {QStringLiteral("key"),
                                  hasKey ? keysOf(each).front().toString() : QString()}});
    }
    return infos;
}

QVariantMap CommandPanel::enabled() const {
    QVariantMap values;
    for (const EditorCommand& each : editorCommands())
        values.insert(QString::fromLatin1(each.id), isEnabled(each, editor_, *this));
    return values;
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
    if (!command || !command->run || !isEnabled(*command, editor_, *this)) return false;
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
