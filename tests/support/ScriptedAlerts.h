#pragma once

#include "platform/Alerts.h"

#include <QScopeGuard>
#include <optional>
#include <vector>

namespace kestrio {

/// Alerts that a test answers: at once with `choice` where it is set, and otherwise by answer(),
/// which goes to the latest one.
class ScriptedAlerts : public Alerts {
  public:
    std::vector<AlertRequest> requests;
    std::optional<int> choice;

    ~ScriptedAlerts() override {
        while (isPending())
            dismiss();
    }

    bool isPending() const { return !open_->empty(); }

    /// The user presses the button of this index.
    void answer(int button) {
        if (!isPending()) return;
        const Open latest = open_->back();
        open_->pop_back();
        latest.done.succeed(button);
    }

    /// The user presses Escape.
    void dismiss() {
        if (isPending()) answer(open_->back().lastButton);
    }

    Task<int> show(AlertRequest request, std::stop_token stop) override {
        const int lastButton = std::max(static_cast<int>(request.buttons.size()) - 1, 0);
        const auto number = requests.size();
        requests.push_back(std::move(request));
        const Completion<int> answered(std::move(stop));
        const auto open = open_;  // the double may be gone once this goes on
        open->push_back({number, answered, lastButton});
        if (choice) answer(*choice);
        const auto close = qScopeGuard([open, number] {
            std::erase_if(*open, [number](const Open& each) { return each.number == number; });
        });
        co_return co_await answered;
    }

  private:
    struct Open {
        std::size_t number;
        Completion<int> done;
        int lastButton;
    };

    std::shared_ptr<std::vector<Open>> open_ = std::make_shared<std::vector<Open>>();
};

}  // namespace kestrio
