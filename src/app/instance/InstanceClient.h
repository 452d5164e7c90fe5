#pragma once

#include "app/instance/InstanceReply.h"
#include "app/instance/InstanceRequest.h"
#include "core/Task.h"

#include <QLocalSocket>

namespace kestrio {

/// Asks the running program for something. Needs an event loop.
class InstanceClient : public QObject {
    Q_OBJECT

  public:
    explicit InstanceClient(QObject* parent = nullptr);

    /// False where none runs. One that is just starting is waited for, for `patience`.
    bool connectTo(const QString& socket, std::chrono::milliseconds patience);

    /// Waits for the reply, however long the user takes. A stop throws Cancelled; the running
    /// program notices and ends what was asked for.
    Task<InstanceReply> ask(InstanceRequest request, std::stop_token stop = {});

  private:
    QLocalSocket socket_;
};

}  // namespace kestrio
