#include "platform/linux/TextPasting.h"

#include "core/Localisation.h"
#include "core/Log.h"
#include "platform/linux/x11/SelectionOwner.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QWindow>

namespace kestrio {

namespace {

bool isSingleLine(const QObject& object) {
    return object.inherits("QQuickTextInput") || object.inherits("QLineEdit");
}

bool isEditableField(const QObject& object) {
    return (isSingleLine(object) || object.inherits("QQuickTextEdit")) &&
           !object.property("readOnly").toBool();
}

// As an input method does, which all fields take alike: in the place of what is selected, with one
// step of undo.
void insert(QObject& field, QString text) {
    if (isSingleLine(field)) {
        while (text.endsWith(u'\n') || text.endsWith(u'\r'))
            text.chop(1);
        text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
        text.replace(u'\n', u' ');
    }
    if (text.isEmpty()) return;
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&field, &event);
}

}  // namespace

void TextPasting::install(std::shared_ptr<QtPasteboard> pasteboard) {
    static QPointer<TextPasting> installed;
    if (installed || !hasSelections()) return;
    installed = new TextPasting(std::move(pasteboard), qGuiApp);
    qGuiApp->installEventFilter(installed);
    // Every field asks for the formats on the clipboard whenever it hears of a change.
    QGuiApplication::clipboard()->blockSignals(true);
}

TextPasting::TextPasting(std::shared_ptr<QtPasteboard> pasteboard, QObject* parent)
    : QObject(parent), pasteboard_(std::move(pasteboard)) {}

bool TextPasting::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return filterKey(object, static_cast<QKeyEvent*>(event));
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
            return filterMiddleButton(object, static_cast<QMouseEvent*>(event));
        case QEvent::ContextMenu:
            if (auto* field = qobject_cast<QLineEdit*>(object)) {
                showMenu(field, static_cast<QContextMenuEvent*>(event)->globalPos());
                return true;
            }
            return false;
        case QEvent::FocusOut:
            // What it is given afterwards may belong to something else.
            if (object == field_) field_ = nullptr;
            return false;
        default:
            return false;
    }
}

bool TextPasting::filterKey(QObject* object, QKeyEvent* event) {
    if (isPasting_ && object == field_) {
        heldKeys_.emplace_back(event->clone());
        return true;
    }
    if (event->type() != QEvent::KeyPress || !event->matches(QKeySequence::Paste) ||
        !isEditableField(*object)) {
        return false;
    }
    begin(object, QClipboard::Clipboard);
    return true;
}

// A press of the left button in its place sets the cursor and the focus; a release of no button
// ends that, where the middle one would ask for what is selected and the left one would replace it.
bool TextPasting::filterMiddleButton(QObject* object, QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton || !isEditableField(*object)) return false;
    const bool isRelease = event->type() == QEvent::MouseButtonRelease;
    QMouseEvent left(
        isRelease ? event->type() : QEvent::MouseButtonPress, event->position(),
        event->scenePosition(), event->globalPosition(), isRelease ? Qt::NoButton : Qt::LeftButton,
        isRelease ? Qt::NoButton : Qt::LeftButton, event->modifiers(), event->pointingDevice());
    QCoreApplication::sendEvent(object, &left);
    event->setAccepted(left.isAccepted());
    if (isRelease) begin(object, QClipboard::Selection);
    return true;
}

// Qt's own menu of a line edit asks for the clipboard while it is made.
void TextPasting::showMenu(QLineEdit* field, QPoint position) {
    auto* menu = new QMenu(field);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool isChangeable = !field->isReadOnly();
    const auto add = [&](const QString& text, bool isEnabled, auto act) {
        menu->addAction(text, field, act)->setEnabled(isEnabled);
    };
    add(Kestrio::tr("Cut"), isChangeable && field->hasSelectedText(), [field] { field->cut(); });
    add(Kestrio::tr("Copy"), field->hasSelectedText(), [field] { field->copy(); });
    add(Kestrio::tr("Paste"), isChangeable, [this, field] { begin(field, QClipboard::Clipboard); });
    add(Kestrio::tr("Select All"), !field->text().isEmpty(), [field] { field->selectAll(); });
    menu->popup(position);
}

void TextPasting::begin(QObject* field, QClipboard::Mode mode) {
    if (isPasting_) return;
    launch(paste(field, mode), this);
}

Task<> TextPasting::paste(QPointer<QObject> field, QClipboard::Mode mode) {
    const QPointer<TextPasting> self(this);
    const auto pasteboard = pasteboard_;
    PasteboardContents found;
    HeldPastes held = HeldPastes::replay;
    isPasting_ = true;
    field_ = field;
    try {
        auto reading = pasteboard->readFrom(mode, PasteboardKind::text);
        found = co_await reading;
    } catch (const PasteboardError& error) {
        logLine("TextPasting", describeFailure(error));
        // Each would wait again for the same.
        held = HeldPastes::drop;
    }
    if (!self) co_return;
    const QPointer<QObject> target = std::exchange(field_, nullptr);
    isPasting_ = false;
    if (target) insert(*target, found.text);
    if (self) replayKeys(held);
}

// Through the window, so that keys that the field leaves alone reach what is around it.
void TextPasting::replayKeys(HeldPastes pastes) {
    for (auto& key : std::exchange(heldKeys_, {})) {
        if (pastes == HeldPastes::drop && key->matches(QKeySequence::Paste)) continue;
        if (QWindow* window = QGuiApplication::focusWindow()) {
            QCoreApplication::postEvent(window, key.release());
        }
    }
}

}  // namespace kestrio
