#include "app/instance/InstanceBus.h"

#include "core/Localisation.h"

#include <QDBusPendingCall>
#include <QDBusServiceWatcher>
#include <QDir>
#include <QTemporaryFile>

namespace kestrio {

namespace {

// Another program that has the name keeps it.
constexpr uint doNotQueue = 4;

const QString& interfaceName() {
    static const QString name = QStringLiteral("org.kestrio.Kestrio1");
    return name;
}

QString errorName(int status) {
    const char* const kind = status == static_cast<int>(ExitStatus::cancelled)    ? "Cancelled"
                             : status == static_cast<int>(ExitStatus::wrongUsage) ? "WrongUsage"
                                                                                  : "Failed";
    return interfaceName() + QStringLiteral(".Error.") + QLatin1String(kind);
}

QString errorText(const InstanceReply& reply) {
    return reply.message.isEmpty() ? Kestrio::tr("cancelled by the user") : reply.message;
}

// Empty where no such file can be made.
QString newTemporaryFile() {
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/kestrio-XXXXXX.png"));
    file.setAutoRemove(false);
    return file.open() ? file.fileName() : QString();
}

// What is wrong with the options; empty where they have become part of the request.
QString readOptions(const QVariantMap& options, CaptureVerb& verb) {
    for (auto option = options.begin(); option != options.end(); ++option) {
        const QString& key = option.key();
        const QString value = option->toString();
        if (key == u"delay") {
            bool isNumber = false;
            verb.delay = option->toInt(&isNumber);
            if (isNumber) continue;
        } else if (key == u"action") {
            verb.action = fromRawString<CaptureAction>(value.toStdString());
            if (verb.action) continue;
        } else if (key == u"auto") {
            verb.isAutomatic = option->toBool();
            if (option->typeId() == QMetaType::Bool) continue;
        } else if (key == u"region") {
            verb.region = regionFrom(value);
            if (!verb.region.empty()) continue;
        } else if (key == u"output") {
            verb.output = value;
            // An empty one would mean none.
            if (!value.isEmpty()) continue;
        }
        return Kestrio::tr("the option \"%1\" cannot be \"%2\"").arg(key, value);
    }
    return {};
}

}  // namespace

InstanceBus::InstanceBus(InstanceHandler handler, QObject* parent)
    : QObject(parent), handler_(std::move(handler)) {}

InstanceBus::~InstanceBus() {
    stop_.request_stop();
}

void InstanceBus::publish() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.registerObject(QStringLiteral("/org/kestrio/Kestrio"), this,
                                                  QDBusConnection::ExportScriptableSlots)) {
        return;
    }
    // Not waited for: a bus that hangs must not hold up the program.
    QDBusMessage ask = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    ask << QStringLiteral("org.kestrio.Kestrio") << doNotQueue;
    bus.asyncCall(ask);
}

void InstanceBus::Activate(const QDBusMessage& message) {
    message.setDelayedReply(true);
    launch(answer(ActivateVerb(), message), this);
}

void InstanceBus::Edit(const QString& file, const QDBusMessage& message) {
    message.setDelayedReply(true);
    launch(answer(EditVerb{file}, message), this);
}

QString InstanceBus::Capture(const QString& kind, const QVariantMap& options,
                             const QDBusMessage& message) {
    message.setDelayedReply(true);
    CaptureVerb verb;
    const auto known = fromRawString<CaptureKind>(kind.toStdString());
    if (!known) {
        refuse(message, Kestrio::tr("there is no capture \"%1\"").arg(kind));
        return {};
    }
    verb.kind = *known;
    if (const QString fault = readOptions(options, verb); !fault.isEmpty()) {
        refuse(message, fault);
        return {};
    }
    QString reserved;
    if (!verb.action && verb.output.isEmpty()) {
        reserved = newTemporaryFile();
        verb.output = reserved;
    }
    launch(answer(std::move(verb), message, reserved), this);
    return {};
}

void InstanceBus::refuse(const QDBusMessage& message, const QString& reason) {
    QDBusConnection::sessionBus().send(
        message.createErrorReply(errorName(static_cast<int>(ExitStatus::wrongUsage)), reason));
}

Task<> InstanceBus::answer(InstanceRequest request, QDBusMessage message, QString reserved) {
    std::stop_source stop;
    const std::stop_callback end(stop_.get_token(), [stop]() mutable { stop.request_stop(); });
    QDBusServiceWatcher caller(message.service(), QDBusConnection::sessionBus(),
                               QDBusServiceWatcher::WatchForUnregistration);
    connect(&caller, &QDBusServiceWatcher::serviceUnregistered, this,
            [stop]() mutable { stop.request_stop(); });
    const bool returnsPath = std::holds_alternative<CaptureVerb>(request);
    auto handling = handler_(std::move(request), stop.get_token());
    const InstanceReply reply = co_await handling;
    QDBusMessage answered =
        reply.status == 0 ? message.createReply()
                          : message.createErrorReply(errorName(reply.status), errorText(reply));
    if (reply.status == 0 && returnsPath) answered << reply.path;
    QDBusConnection::sessionBus().send(answered);
    if (reply.status != 0 && !reserved.isEmpty()) QFile::remove(reserved);
}

}  // namespace kestrio
