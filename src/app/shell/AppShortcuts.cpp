#include "app/shell/AppShortcuts.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>

namespace kestrio {

AppShortcuts::AppShortcuts(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

void AppShortcuts::add(QKeyCombination keys, std::function<void()> action) {
    entries_.push_back({keys, std::move(action)});
}

bool AppShortcuts::eventFilter(QObject* watched, QEvent* event) {
    // A key passes through its window first and then through the objects in it.
    if (event->type() != QEvent::KeyPress || !qobject_cast<QWindow*>(watched)) return false;
    const auto* key = static_cast<const QKeyEvent*>(event);
    for (const Entry& entry : entries_) {
        if (key->keyCombination() != entry.keys) continue;
        if (!key->isAutoRepeat()) {
            // The action may close the window whose event this is.
            QMetaObject::invokeMethod(this, entry.action, Qt::QueuedConnection);
        }
        return true;
    }
    return false;
}

}  // namespace kestrio
