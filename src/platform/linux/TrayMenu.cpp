#include "platform/linux/TrayMenu.h"

#include <QCoreApplication>
#include <QMenu>
#include <QTimer>
#include <algorithm>

namespace kestrio {

namespace {

// A compositing manager may still show the menu in the frame after the one in which it was closed.
constexpr std::chrono::milliseconds leavingTime{80};

bool isOfKind(const QAction* action, const StatusMenuEntry& entry) {
    return action->isSeparator() == entry.isSeparator() &&
           (action->menu() != nullptr) == !entry.entries.empty();
}

void addAction(QMenu& menu, const StatusMenuEntry& entry) {
    if (entry.isSeparator()) {
        menu.addSeparator();
    } else if (entry.entries.empty()) {
        menu.addAction(QString());
    } else {
        menu.addMenu(QString());
    }
}

QString textOf(const StatusMenuEntry& entry) {
    // Menus take an ampersand for the mark of a letter to choose by.
    QString text = entry.title;
    text.replace(u'&', QStringLiteral("&&"));
    // Text after a tab stands where shortcuts do, without being one.
    if (entry.shortcut) text += u'\t' + shortcutText(*entry.shortcut);
    return text;
}

void showEntry(QAction& action, const StatusMenuEntry& entry) {
    if (entry.isSeparator()) return;
    action.setText(textOf(entry));
    action.setToolTip(entry.toolTip);
    action.setEnabled(entry.isEnabled);
    if (action.menu()) {
        fillMenu(*action.menu(), entry.entries);
        return;
    }
    // In the application's name: the action is gone if the menu is filled again meanwhile.
    QObject::disconnect(&action, &QAction::triggered, qApp, nullptr);
    if (!entry.action) return;
    QObject::connect(&action, &QAction::triggered, qApp,
                     [run = entry.action] { QTimer::singleShot(leavingTime, qApp, run); });
}

}  // namespace

void fillMenu(QMenu& menu, const StatusMenu& entries) {
    menu.setToolTipsVisible(true);
    const QList<QAction*> before = menu.actions();
    if (!std::equal(before.begin(), before.end(), entries.begin(), entries.end(), isOfKind)) {
        // Submenus belong to the menu and do not go with its actions.
        qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
        menu.clear();
        for (const StatusMenuEntry& entry : entries)
            addAction(menu, entry);
    }
    const QList<QAction*> actions = menu.actions();
    for (std::size_t i = 0; i < entries.size(); ++i)
        showEntry(*actions[static_cast<qsizetype>(i)], entries[i]);
}

}  // namespace kestrio
