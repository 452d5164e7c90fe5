#include "platform/linux/DBusFileReveal.h"

#include "platform/linux/SessionBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace kestrio {

namespace {

// A viewer that has to be started first may take seconds.
constexpr int answerMilliseconds = 10000;

QDBusMessage showItems(const QString& path) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    const QString uri = QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
    call.setArguments({QStringList(uri), QString()});
    return call;
}

}  // namespace

void DBusFileReveal::reveal(const QString& path) {
    const QFileInfo file(path);
    const QUrl folder = QUrl::fromLocalFile(file.absolutePath());
    const QDBusConnection bus = connectToSessionBus(busAddress_);
    if (!bus.isConnected()) {
        QDesktopServices::openUrl(folder);
        return;
    }
    const QDBusPendingCall call =
        bus.asyncCall(showItems(file.absoluteFilePath()), answerMilliseconds);
    // Not owned by this service, which may be gone when the viewer answers.
    auto* answer = new QDBusPendingCallWatcher(call);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, folder] {
        if (answer->isError()) QDesktopServices::openUrl(folder);
        answer->deleteLater();
    });
}

}  // namespace kestrio
