#include "app/shell/FailureNotice.h"

#include "core/Localisation.h"

namespace kestrio {

Task<> FailureNotice::show(FlowFailure failure, std::stop_token stop) {
    // Held by this flow, which may outlive the notice.
    const auto alerts = alerts_;
    const auto permissions = permissions_;
    switch (failure.which()) {
        case FlowFailure::Case::cancelled:
            break;
        case FlowFailure::Case::permissionDenied: {
            auto shown = permissions->showPermissionAlert();
            co_await shown;
            break;
        }
        case FlowFailure::Case::alert: {
            AlertRequest request;
            request.title = failure.title();
            request.text = failure.text();
            request.buttons = {Kestrio::tr("OK")};
            auto shown = alerts->show(std::move(request), std::move(stop));
            co_await shown;
            break;
        }
    }
}

}  // namespace kestrio
