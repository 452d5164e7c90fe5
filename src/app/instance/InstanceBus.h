#pragma once

#include "app/instance/InstanceServer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace kestrio {

/// The program on the session bus, for other programs: service "org.kestrio.Kestrio", object
/// "/org/kestrio/Kestrio", interface "org.kestrio.Kestrio1". Errors carry the names
/// "org.kestrio.Kestrio1.Error.Failed", ".Cancelled" and ".WrongUsage". Main thread.
class InstanceBus : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kestrio.Kestrio1")

  public:
    InstanceBus(InstanceHandler handler, QObject* parent = nullptr);
    ~InstanceBus() override;

    /// Nothing happens where there is no bus, or another program has the name.
    void publish();

  public Q_SLOTS:
    /// Brings the program to notice.
    Q_SCRIPTABLE void Activate(const QDBusMessage& message);
    /// Opens the editor on a file, or on the clipboard's picture for an empty path.
    Q_SCRIPTABLE void Edit(const QString& file, const QDBusMessage& message);
    /// Captures a "region", a "window" or a "display" and returns the path of the file that was
    /// written. Options: "delay" in seconds; "action", one of "edit", "copy", "save" and "pin";
    /// "output", a file to write. With neither of the last two the picture is written to a new
    /// temporary file, which is the caller's to delete.
    Q_SCRIPTABLE QString Capture(const QString& kind, const QVariantMap& options,
                                 const QDBusMessage& message);

  private:
    /// `reserved` is an empty file made for the capture; it goes where none is written to it.
    Task<> answer(InstanceRequest request, QDBusMessage message, QString reserved = {});
    void refuse(const QDBusMessage& message, const QString& reason);

    InstanceHandler handler_;
    std::stop_source stop_;
};

}  // namespace kestrio
