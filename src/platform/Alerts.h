#pragma once

#include "core/Task.h"

#include <QStringList>
#include <optional>

namespace kestrio {

enum class AlertStyle { informational, warning, critical };

/// A field of one line in which the user writes an answer.
struct AlertTextField {
    QString text;         ///< that it starts with, selected
    QString placeholder;  ///< an example, shown while the field is empty
};

/// A question with a few answers. The first button is the one that Return takes, the last one is
/// what Escape and closing stand for, unless another one is named.
struct AlertRequest {
    AlertStyle style = AlertStyle::warning;
    QString title;
    QString text;
    QStringList buttons;  ///< "OK" alone where empty
    std::optional<AlertTextField> textField = std::nullopt;
    std::optional<int> escapeButton = std::nullopt;  ///< an index of `buttons`
};

struct AlertAnswer {
    int button = 0;  ///< the index of the one that was pressed
    QString text;    ///< what stood in the text field then; empty without one
};

/// Shows the user a question or a notice that must be answered. The main loop goes on meanwhile.
/// Main thread only. Destroying the service dismisses what is open.
class Alerts {
  public:
    virtual ~Alerts() = default;

    /// A stop closes the alert and throws Cancelled.
    virtual Task<AlertAnswer> ask(AlertRequest request, std::stop_token stop = {}) = 0;
    /// The same for questions without a text field: the index of the button.
    Task<int> show(AlertRequest request, std::stop_token stop = {});
};

}  // namespace kestrio
