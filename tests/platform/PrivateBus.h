#pragma once

#include <QDBusConnection>
#include <QProcess>

#include <gtest/gtest.h>

namespace kestrio {

/// A session bus of a test's own, with a connection on which the test offers services.
class PrivateBus {
  public:
    PrivateBus() {
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--session"), QStringLiteral("--nofork"),
                       QStringLiteral("--print-address")});
        while (!daemon_.canReadLine() && daemon_.waitForReadyRead(5000)) {
        }
        address_ = QString::fromLatin1(daemon_.readLine()).trimmed();
        EXPECT_FALSE(address_.isEmpty()) << "no dbus-daemon";
        serviceName_ = QStringLiteral("services of ") + address_;
        QDBusConnection::connectToBus(address_, serviceName_);
    }

    ~PrivateBus() {
        QDBusConnection::disconnectFromBus(serviceName_);
        QDBusConnection::disconnectFromBus(address_);  // the one that connectToSessionBus() made
        daemon_.kill();
        daemon_.waitForFinished();
    }

    QString address() const { return address_; }

    /// Puts an object with all its slots and signals on the bus under a well known name.
    void offer(const QString& name, const QString& path, QObject* object) {
        QDBusConnection bus(serviceName_);
        EXPECT_TRUE(bus.registerObject(
            path, object, QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        EXPECT_TRUE(bus.registerService(name));
    }

  private:
    QProcess daemon_;
    QString address_;
    QString serviceName_;
};

}  // namespace kestrio
