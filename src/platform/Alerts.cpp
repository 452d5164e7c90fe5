#include "platform/Alerts.h"

namespace kestrio {

Task<int> Alerts::show(AlertRequest request, std::stop_token stop) {
    auto asking = ask(std::move(request), std::move(stop));
    const AlertAnswer answer = co_await asking;
    co_return answer.button;
}

}  // namespace kestrio
