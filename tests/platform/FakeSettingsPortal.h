#pragma once

#include <QDBusContext>
#include <QDBusVariant>
#include <QMap>
#include <QObject>

namespace kestrio {

/// A settings portal on the bus; keys are "group key".
class FakeSettingsPortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

  public:
    QMap<QString, QVariant> values;
    int readCount = 0;

    void change(const QString& group, const QString& key, const QVariant& value) {
        values[group + u' ' + key] = value;
        Q_EMIT SettingChanged(group, key, QDBusVariant(value));
    }

    Q_SLOT QDBusVariant Read(const QString& group, const QString& key) {
        ++readCount;
        const auto value = values.constFind(group + u' ' + key);
        if (value == values.constEnd()) {
            sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                           QStringLiteral("Requested setting not found"));
            return {};
        }
        // Read() has always wrapped its answer twice.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(*value)));
    }

    Q_SIGNAL void SettingChanged(const QString& group, const QString& key,
                                 const QDBusVariant& value);
};

}  // namespace kestrio
