#pragma once

#include "platform/Alerts.h"

#include <QObject>

namespace kestrio {

/// Alerts through QMessageBox. Needs a QApplication.
class QtAlerts : public Alerts {
  public:
    Task<AlertAnswer> ask(AlertRequest request, std::stop_token stop) override;

  private:
    QObject lifetime_;  // open alerts go when it goes
};

}  // namespace kestrio
