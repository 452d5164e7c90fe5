#include "platform/Pasteboard.h"

namespace kestrio {

Task<bool> writeImagePatiently(std::shared_ptr<Pasteboard> pasteboard, QImage image,
                               QByteArray png) {
    constexpr int attempts = 5;
    constexpr std::chrono::milliseconds interval(30);
    for (int attempt = 1; !pasteboard->writeImage(image, png); ++attempt) {
        if (attempt == attempts) co_return false;
        // The desktop's events, which come meanwhile, say when the other program has copied; what
        // claims to be older than that is refused.
        const auto pause = sleepFor(interval);
        co_await pause;
    }
    co_return true;
}

}  // namespace kestrio
