#include "platform/linux/TrayMenu.h"

#include "imaging/SymbolImage.h"

#include <QCoreApplication>
#include <QMenu>
#include <QTimer>
#include <algorithm>

namespace kestrio {

namespace {

// A compositing manager may still show the menu in the frame after the one in which it was closed.
constexpr std::chrono::milliseconds leavingTime{80};
constexpr int iconSide = 16;  // points

bool isOfKind(const QAction* action, const StatusMenuEntry& entry) {
    return action->isSeparator() == entry.isSeparator() &&
           (action->menu() != nullptr) == !entry.entries.empty();
}

void insertAction(QMenu& menu, QAction* before, const StatusMenuEntry& entry) {
    auto* action = new QAction(&menu);
    action->setSeparator(entry.isSeparator());
    if (!entry.entries.empty()) action->setMenu(new QMenu(&menu));
    menu.insertAction(before, action);
}

void discard(QAction* action) {
    // It may be the one that is open, or whose key is being handled.
    if (QMenu* inner = action->menu()) {
        inner->close();
        inner->deleteLater();
    }
    action->deleteLater();
}

QIcon iconOf(const QMenu& menu, const QString& name) {
    QIcon icon;
    if (name.isEmpty()) return icon;
    const QColor color = menu.palette().color(QPalette::WindowText);
    for (const int scale : {1, 2}) {
        QImage image = symbolImage(name, color, iconSide * scale);
        image.setDevicePixelRatio(scale);
        icon.addPixmap(QPixmap::fromImage(std::move(image)));
    }
    return icon;
}

QString textOf(const StatusMenuEntry& entry) {
    // Menus take an ampersand for the mark of a letter to choose by.
    QString text = entry.title;
    text.replace(u'&', QStringLiteral("&&"));
    // Text after a tab stands where shortcuts do, without being one.
    if (entry.shortcut) text += u'\t' + shortcutText(*entry.shortcut);
    return text;
}

void showEntry(const QMenu& menu, QAction& action, const StatusMenuEntry& entry) {
    if (entry.isSeparator()) return;
    action.setText(textOf(entry));
    action.setIcon(iconOf(menu, entry.icon));
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
    const auto [firstOld, firstNew] =
        std::mismatch(before.begin(), before.end(), entries.begin(), entries.end(), isOfKind);
    // What follows upon the difference is compared from the end, so that it keeps its place.
    const auto [lastOld, lastNew] =
        std::mismatch(before.rbegin(), std::make_reverse_iterator(firstOld), entries.rbegin(),
                      std::make_reverse_iterator(firstNew), isOfKind);
    QAction* const next = lastOld == before.rbegin() ? nullptr : *std::prev(lastOld);
    for (auto old = firstOld; old != lastOld.base(); ++old) {
        menu.removeAction(*old);
        discard(*old);
    }
    for (auto added = firstNew; added != lastNew.base(); ++added)
        insertAction(menu, next, *added);
    const QList<QAction*> actions = menu.actions();
    for (std::size_t i = 0; i < entries.size(); ++i)
        showEntry(menu, *actions[static_cast<qsizetype>(i)], entries[i]);
}

}  // namespace kestrio
