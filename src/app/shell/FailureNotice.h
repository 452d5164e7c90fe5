#pragma once

#include "app/flows/FlowFailure.h"
#include "app/shell/PermissionManager.h"

namespace kestrio {

/// Tells the user of failures, of all flows alike. Main thread.
class FailureNotice {
  public:
    FailureNotice(std::shared_ptr<PermissionManager> permissions, std::shared_ptr<Alerts> alerts)
        : permissions_(std::move(permissions)), alerts_(std::move(alerts)) {}

    /// Until the user has read it; at once for a cancelled flow, of which nobody is told. A stop
    /// throws Cancelled.
    Task<> show(FlowFailure failure, std::stop_token stop = {});

  private:
    std::shared_ptr<PermissionManager> permissions_;
    std::shared_ptr<Alerts> alerts_;
};

}  // namespace kestrio
