#pragma once

#include "app/capture/CaptureCoordinator.h"
#include "app/instance/InstanceReply.h"
#include "app/instance/InstanceRequest.h"
#include "platform/Pasteboard.h"

#include <functional>

namespace kestrio {

/// Carries out what other starts of the program and other programs ask for. Main thread.
class InstanceCommands : public QObject {
    Q_OBJECT

  public:
    /// `activate` brings the program to notice.
    InstanceCommands(CaptureCoordinator& captures, std::shared_ptr<Pasteboard> pasteboard,
                     std::function<void()> activate, QObject* parent = nullptr);

    /// Never throws.
    Task<InstanceReply> run(InstanceRequest request, std::stop_token stop);

  private:
    Task<InstanceReply> carryOut(ActivateVerb verb, std::stop_token stop);
    Task<InstanceReply> carryOut(EditVerb verb, std::stop_token stop);
    Task<InstanceReply> carryOut(CaptureVerb verb, std::stop_token stop);

    CaptureCoordinator& captures_;
    std::shared_ptr<Pasteboard> pasteboard_;
    std::function<void()> activate_;
};

}  // namespace kestrio
