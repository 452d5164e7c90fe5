#pragma once

#include "app/instance/InstanceReply.h"
#include "app/instance/InstanceRequest.h"
#include "core/Task.h"

#include <QFileSystemWatcher>
#include <QLocalServer>
#include <QTimer>
#include <functional>
#include <vector>

class QLocalSocket;

namespace kestrio {

/// Carries out a request; never throws. A stop means that the asking program has gone.
using InstanceHandler = std::function<Task<InstanceReply>(InstanceRequest, std::stop_token)>;

/// Takes requests of other starts of the program on a socket of the user's own. Stays reachable: a
/// socket that was removed is made again, with its folder; connections that ask for nothing are
/// closed, the oldest first where there are many. Main thread.
class InstanceServer : public QObject {
    Q_OBJECT

  public:
    InstanceServer(InstanceHandler handler, QObject* parent = nullptr);
    ~InstanceServer() override;

    /// False where the socket cannot be made now; it is tried again from time to time. One that a
    /// crashed program left behind is replaced; the caller holds the lock, so nobody listens there.
    bool listen(const QString& socket);

    /// Makes the socket again where it is gone; called when somebody is known to look for it.
    void recoverWhereLost();
    /// The socket was lost and is there again.
    Q_SIGNAL void recovered();

  private:
    bool open();
    bool isReachable() const;
    void watch();
    void accept();
    void keepIdle(QLocalSocket* connection);
    void read(QLocalSocket* connection, LineReader& lines);
    Task<> answer(QLocalSocket* connection, QByteArray line);
    Task<InstanceReply> reply(QByteArray line, std::stop_token stop);

    InstanceHandler handler_;
    QLocalServer server_;
    QString socket_;
    quint64 socketNode_ = 0;  ///< of the file that this server made
    QFileSystemWatcher watcher_;
    QTimer retry_;
    std::vector<QLocalSocket*> idle_;  ///< have asked for nothing yet, the oldest first
    std::stop_source stop_;
};

}  // namespace kestrio
