#pragma once

#include "core/Task.h"

#include <QStringList>

namespace kestrio {

enum class AlertStyle { informational, warning, critical };

/// A question with a few answers. The first button is the one that Return takes, the last one is
/// what Escape and closing stand for.
struct AlertRequest {
    AlertStyle style = AlertStyle::warning;
    QString title;
    QString text;
    QStringList buttons;  ///< "OK" alone where empty
};

/// Shows the user a question or a notice that must be answered. The main loop goes on meanwhile.
/// Main thread only. Destroying the service dismisses what is open.
class Alerts {
  public:
    virtual ~Alerts() = default;

    /// The index of the button. A stop closes the alert and throws Cancelled.
    virtual Task<int> show(AlertRequest request, std::stop_token stop = {}) = 0;
};

}  // namespace kestrio
