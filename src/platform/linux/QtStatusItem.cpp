#include "platform/linux/QtStatusItem.h"

#include "platform/linux/TrayMenu.h"

#include <QCursor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>

namespace kestrio {

namespace {

// Between looks for a tray; each wait is twice the one before.
constexpr std::chrono::milliseconds firstWait{250};
constexpr std::chrono::milliseconds longestWait{8000};
constexpr int answerMilliseconds = 300;

// Whether a panel shows the icons that programs offer on the session bus.
QDBusMessage questionForHost() {
    QDBusMessage ask = QDBusMessage::createMethodCall(
        QStringLiteral("org.kde.StatusNotifierWatcher"), QStringLiteral("/StatusNotifierWatcher"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    ask << QStringLiteral("org.kde.StatusNotifierWatcher")
        << QStringLiteral("IsStatusNotifierHostRegistered");
    ask.setAutoStartService(false);
    return ask;
}

}  // namespace

QtStatusItem::QtStatusItem(std::shared_ptr<XcbConnection> xServer)
    : xServer_(std::move(xServer)), nextWait_(firstWait) {
    waiting_.setSingleShot(true);
    QObject::connect(&waiting_, &QTimer::timeout, &waiting_, [this] { tryToShow(); });
}

bool QtStatusItem::hasXTray() const {
    return xServer_->open() && xServer_->isOwned(XAtom::systemTray);
}

bool QtStatusItem::isAvailable() const {
    return icon_ ? QSystemTrayIcon::isSystemTrayAvailable() : hasXTray();
}

void QtStatusItem::show(std::shared_ptr<StatusItemModel> model) {
    if (model_) model_->disconnect(&waiting_);
    model_ = std::move(model);
    const auto follow = [this](auto signal, void (QtStatusItem::*update)()) {
        // The timer is the context of the connection, since this class is not a QObject.
        QObject::connect(model_.get(), signal, &waiting_, [this, update] {
            if (icon_) (this->*update)();
        });
    };
    follow(&StatusItemModel::iconChanged, &QtStatusItem::updateIcon);
    follow(&StatusItemModel::toolTipChanged, &QtStatusItem::updateIcon);
    follow(&StatusItemModel::menuChanged, &QtStatusItem::rebuild);
    tryToShow();
}

void QtStatusItem::tryToShow() {
    if (icon_ || hasXTray()) {
        reveal();
    } else {
        askForHost();
    }
}

// Not waited for: a bus that hangs must not hold up the program.
void QtStatusItem::askForHost() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    // A call without a connection never finishes.
    if (!bus.isConnected()) return tryLater();
    answer_ = std::make_unique<QDBusPendingCallWatcher>(
        bus.asyncCall(questionForHost(), answerMilliseconds));
    QObject::connect(answer_.get(), &QDBusPendingCallWatcher::finished, answer_.get(), [this] {
        const QDBusPendingReply<QVariant> reply = *answer_;
        if (reply.isValid() && reply.value().toBool()) return reveal();
        tryLater();
    });
}

void QtStatusItem::tryLater() {
    waiting_.start(nextWait_);
    nextWait_ = std::min(nextWait_ * 2, longestWait);
}

void QtStatusItem::reveal() {
    if (!icon_) make();
    rebuild();  // a host asks for the entries before it reports that it opens the menu
    icon_->show();
}

void QtStatusItem::make() {
    menu_ = std::make_unique<QMenu>();
    icon_ = std::make_unique<QSystemTrayIcon>();
    QObject::connect(menu_.get(), &QMenu::aboutToShow, menu_.get(), [this] { rebuild(); });
    QObject::connect(icon_.get(), &QSystemTrayIcon::activated, menu_.get(),
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger) menu_->popup(QCursor::pos());
                     });
    icon_->setContextMenu(menu_.get());
    updateIcon();
}

void QtStatusItem::updateIcon() {
    icon_->setIcon(model_->icon());
    icon_->setToolTip(model_->toolTip());
}

void QtStatusItem::rebuild() {
    fillMenu(*menu_, model_->menu());
}

}  // namespace kestrio
