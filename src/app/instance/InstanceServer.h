#pragma once

#include "app/instance/InstanceMessages.h"
#include "core/Task.h"

#include <QLocalServer>
#include <functional>

class QLocalSocket;

namespace kestrio {

/// Carries out a request; never throws. A stop means that the asking program has gone.
using InstanceHandler = std::function<Task<InstanceReply>(InstanceRequest, std::stop_token)>;

/// Takes requests of other starts of the program on a socket of the user's own. Main thread.
class InstanceServer : public QObject {
    Q_OBJECT

  public:
    InstanceServer(InstanceHandler handler, QObject* parent = nullptr);
    ~InstanceServer() override;

    /// False where the socket cannot be made. One that a crashed program left behind is replaced;
    /// the caller holds the lock, so nobody listens there.
    bool listen(const QString& socket);

  private:
    void accept();
    void read(QLocalSocket* connection);
    Task<> answer(QLocalSocket* connection, QByteArray line);
    Task<InstanceReply> reply(QByteArray line, std::stop_token stop);

    InstanceHandler handler_;
    QLocalServer server_;
    std::stop_source stop_;
};

}  // namespace kestrio
