#include "app/instance/InstanceServer.h"

#include "core/Localisation.h"

#include <QLocalSocket>
#include <QPointer>

namespace kestrio {

namespace {

constexpr qint64 longestLine = 64 * 1024;

}  // namespace

InstanceServer::InstanceServer(InstanceHandler handler, QObject* parent)
    : QObject(parent), handler_(std::move(handler)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &InstanceServer::accept);
}

InstanceServer::~InstanceServer() {
    stop_.request_stop();
}

bool InstanceServer::listen(const QString& socket) {
    QLocalServer::removeServer(socket);
    return server_.listen(socket);
}

void InstanceServer::accept() {
    while (QLocalSocket* connection = server_.nextPendingConnection()) {
        connection->setReadBufferSize(longestLine);
        connect(connection, &QLocalSocket::readyRead, this, [this, connection] { read(connection); });
        connect(connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
        read(connection);
    }
}

void InstanceServer::read(QLocalSocket* connection) {
    if (connection->canReadLine()) {
        const QByteArray line = connection->readLine(longestLine);
        connection->disconnect(this);
        launch(answer(connection, line), this);
    } else if (connection->bytesAvailable() >= longestLine) {
        connection->abort();
    }
}

Task<> InstanceServer::answer(QLocalSocket* connection, QByteArray line) {
    const QPointer<QLocalSocket> asking(connection);
    std::stop_source stop;
    const std::stop_callback end(stop_.get_token(), [stop]() mutable { stop.request_stop(); });
    const auto gone = connect(connection, &QLocalSocket::disconnected, this,
                              [stop]() mutable { stop.request_stop(); });
    if (connection->state() != QLocalSocket::ConnectedState) stop.request_stop();
    auto replying = reply(std::move(line), stop.get_token());
    const InstanceReply made = co_await replying;
    QObject::disconnect(gone);
    if (!asking) co_return;
    asking->write(messageLine(made));
    asking->disconnectFromServer();
}

Task<InstanceReply> InstanceServer::reply(QByteArray line, std::stop_token stop) {
    InstanceRequest request;
    try {
        request = decodeJsonText<InstanceRequest>(line);
    } catch (const JsonError&) {
        co_return InstanceReply{static_cast<int>(InstanceStatus::wrongUsage),
                                localised("the running Kestrio does not understand this; it may be "
                                          "of another version, so quit it and start it again"),
                                {}};
    }
    auto handling = handler_(std::move(request), std::move(stop));
    co_return co_await handling;
}

}  // namespace kestrio
