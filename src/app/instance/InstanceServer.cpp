#include "app/instance/InstanceServer.h"

#include "app/instance/PeerCheck.h"
#include "core/FileSystem.h"
#include "core/Localisation.h"
#include "core/NativePath.h"

#include <sys/stat.h>
#include <QLocalSocket>
#include <QPointer>

namespace kestrio {

namespace {

constexpr std::size_t mostIdle = 64;
constexpr int mostInLine = 512;
constexpr std::chrono::seconds idleLimit(10);
constexpr std::chrono::seconds retryPause(2);

// 0 where nothing is there.
quint64 nodeOf(const QString& path) {
    struct stat status = {};
    return ::lstat(toNativePath(path).constData(), &status) == 0 ? status.st_ino : 0;
}

}  // namespace

InstanceServer::InstanceServer(InstanceHandler handler, QObject* parent)
    : QObject(parent), handler_(std::move(handler)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    server_.setListenBacklogSize(mostInLine);
    retry_.setSingleShot(true);
    retry_.setInterval(retryPause);
    connect(&server_, &QLocalServer::newConnection, this, &InstanceServer::accept);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this,
            &InstanceServer::recoverWhereLost);
    connect(&retry_, &QTimer::timeout, this, &InstanceServer::recoverWhereLost);
}

InstanceServer::~InstanceServer() {
    stop_.request_stop();
    // They go with the server, after the list that their end would be noted in.
    for (QLocalSocket* each : idle_)
        each->disconnect(this);
}

bool InstanceServer::listen(const QString& socket) {
    socket_ = socket;
    const bool isOpen = open();
    watch();
    return isOpen;
}

bool InstanceServer::open() {
    server_.close();
    QLocalServer::removeServer(socket_);
    if (!server_.listen(socket_)) return false;
    socketNode_ = nodeOf(socket_);
    return true;
}

bool InstanceServer::isReachable() const {
    return server_.isListening() && nodeOf(socket_) == socketNode_;
}

// The folder, and the one above it for the case that it is removed.
void InstanceServer::watch() {
    const QString folder = folderOf(socket_);
    // A folder that was made again is another one to the watcher, under the same name.
    if (!watcher_.directories().isEmpty()) watcher_.removePaths(watcher_.directories());
    watcher_.addPaths({folder, folderOf(folder)});
    if (!isReachable()) retry_.start();
}

void InstanceServer::recoverWhereLost() {
    if (isReachable()) return;
    ::mkdir(toNativePath(folderOf(socket_)).constData(), S_IRWXU);
    const bool isOpen = open();
    watch();
    if (isOpen) Q_EMIT recovered();
}

void InstanceServer::accept() {
    while (QLocalSocket* connection = server_.nextPendingConnection()) {
        connect(connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
        if (!isPeerOfThisUser(static_cast<int>(connection->socketDescriptor()))) {
            connection->abort();
            continue;
        }
        connection->setReadBufferSize(longestMessage);
        keepIdle(connection);
        const auto lines = std::make_shared<LineReader>(longestMessage);
        connect(connection, &QLocalSocket::readyRead, this,
                [this, connection, lines] { read(connection, *lines); });
        read(connection, *lines);
    }
    // Where no descriptor was left for one, the server has closed itself.
    if (!server_.isListening()) retry_.start();
}

void InstanceServer::keepIdle(QLocalSocket* connection) {
    idle_.push_back(connection);
    connect(connection, &QObject::destroyed, this,
            [this, connection] { std::erase(idle_, connection); });
    QTimer::singleShot(idleLimit, connection, [this, connection] {
        if (std::ranges::count(idle_, connection) > 0) connection->abort();
    });
    if (idle_.size() <= mostIdle) return;
    QLocalSocket* const oldest = idle_.front();
    idle_.erase(idle_.begin());
    oldest->abort();
}

void InstanceServer::read(QLocalSocket* connection, LineReader& lines) {
    lines.append(connection->readAll());
    if (const auto line = lines.takeLine()) {
        // One connection asks for one thing.
        connection->disconnect(this);
        std::erase(idle_, connection);
        launch(answer(connection, *line), this);
    } else if (lines.isBroken()) {
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
    } catch (const JsonError& error) {
        co_return InstanceReply::wrongUsage(
            Kestrio::tr("the running Kestrio does not understand the request (%1); it may be of "
                        "another version, so quit it and start it again")
                .arg(error.errorDescription()));
    }
    auto handling = handler_(std::move(request), std::move(stop));
    co_return co_await handling;
}

}  // namespace kestrio
