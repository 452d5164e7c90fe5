#pragma once

#include "platform/Alerts.h"

#include <QScopeGuard>
#include <optional>
#include <vector>

namespace kestrio {

/// Alerts that a test answers: at once with `choice` where it is set, and otherwise by answer(),
/// which goes to the latest one. Text fields keep what they start with until type() changes it.
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
        latest.done.succeed({button, latest.text});
    }

    /// The user replaces what is in the text field of the latest one, where it has one.
    void type(const QString& text) {
        if (isPending() && requests.at(open_->back().number).textField) open_->back().text = text;
    }

    /// The user presses Escape.
    void dismiss() {
        if (isPending()) answer(open_->back().escapeButton);
    }

    Task<AlertAnswer> ask(AlertRequest request, std::stop_token stop) override {
        const int escapeButton = request.escapeButton.value_or(
            std::max(static_cast<int>(request.buttons.size()) - 1, 0));
        const auto number = requests.size();
        const QString text = request.textField ? request.textField->text : QString();
        requests.push_back(std::move(request));
        const Completion<AlertAnswer> answered(std::move(stop));
        const auto open = open_;  // the double may be gone once this goes on
        open->push_back({number, answered, escapeButton, text});
        if (choice) answer(*choice);
        const auto close = qScopeGuard([open, number] {
            std::erase_if(*open, [number](const Open& each) { return each.number == number; });
        });
        co_return co_await answered;
    }

  private:
    struct Open {
        std::size_t number;
        Completion<AlertAnswer> done;
        int escapeButton;
        QString text;
    };

    std::shared_ptr<std::vector<Open>> open_ = std::make_shared<std::vector<Open>>();
};

}  // namespace kestrio
