#include "app/settings/ShortcutRecorder.h"

#include "platform/KeySymbols.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

namespace kestrio {

namespace {

constexpr int deciding = KeyCombination::command | KeyCombination::option | KeyCombination::control;

}  // namespace

ShortcutRecorder::ShortcutRecorder(std::shared_ptr<HotkeyManager> hotkeys, Validate validate,
                                   QObject* parent)
    : QObject(parent), hotkeys_(std::move(hotkeys)), validate_(std::move(validate)) {}

ShortcutRecorder::~ShortcutRecorder() {
    stop();
}

void ShortcutRecorder::toggle() {
    if (isRecording()) {
        stop();
    } else {
        start();
    }
}

void ShortcutRecorder::start() {
    set_conflictMessage({});
    hotkeys_->suspend();
    QCoreApplication::instance()->installEventFilter(this);
    // So that keys of other programs, such as the desktop's own for screenshots, come here too.
    window_ = QGuiApplication::focusWindow();
    if (window_) window_->setKeyboardGrabEnabled(true);
    set_isRecording(true);
}

void ShortcutRecorder::stop() {
    if (!isRecording()) return;
    QCoreApplication::instance()->removeEventFilter(this);
    if (window_) window_->setKeyboardGrabEnabled(false);
    set_isRecording(false);
    hotkeys_->registerHotkeys();
}

bool ShortcutRecorder::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            // Shortcuts of the window must not see the key; as a key press it comes again.
            event->accept();
            return true;
        case QEvent::KeyPress:
            take(static_cast<const QKeyEvent&>(*event));
            return true;
        case QEvent::KeyRelease:
            return true;
        default:
            return false;
    }
}

void ShortcutRecorder::take(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape) {
        stop();
        return;
    }
    const auto combination = combinationOf(event);
    if (!combination) return;
    const bool hasModifier = (combination->modifiers & deciding) != 0;
    if (!hasModifier && !standsAlone(combination->keyCode)) return;
    const HotkeyConfig candidate{combination->keyCode, combination->modifiers};
    const QString conflict = validate_(candidate);
    set_conflictMessage(conflict);
    if (!conflict.isEmpty()) return;
    Q_EMIT recorded(candidate);
    stop();
}

}  // namespace kestrio
