#include "platform/MemoryPressure.h"

namespace kestrio {

std::shared_ptr<MemoryPressureSource> MemoryPressure::makeMemoryPressureSource(
    MemoryPressureSource::Handler handler) {
    std::erase_if(sources_, [](const auto& source) { return source.expired(); });
    auto source = std::make_shared<MemoryPressureSource>(std::move(handler));
    sources_.push_back(source);
    return source;
}

void MemoryPressure::announce(MemoryPressureLevel level) {
    const auto sources = sources_;  // handlers may subscribe again
    for (const auto& each : sources) {
        if (const auto source = each.lock()) source->call(level);
    }
}

}  // namespace kestrio
