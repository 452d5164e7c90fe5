#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace kestrio {

/// How badly the machine is short of memory.
enum class MemoryPressureLevel { warning, critical };

/// A subscription; it ends when this is destroyed, which may be after the service itself.
class MemoryPressureSource {
  public:
    using Handler = std::function<void(MemoryPressureLevel)>;

    explicit MemoryPressureSource(Handler handler) : handler_(std::move(handler)) {}
    void call(MemoryPressureLevel level) const { handler_(level); }

  private:
    Handler handler_;
};

/// Says when the machine runs short of memory. Main thread only. A platform's class watches the
/// system and announces what it learns; one that cannot know stays silent.
class MemoryPressure {
  public:
    virtual ~MemoryPressure() = default;

    /// The handler is called at each event until the returned subscription goes. It may end any
    /// subscription, its own included.
    std::shared_ptr<MemoryPressureSource> makeMemoryPressureSource(
        MemoryPressureSource::Handler handler);

  protected:
    void announce(MemoryPressureLevel level);

  private:
    std::vector<std::weak_ptr<MemoryPressureSource>> sources_;
};

}  // namespace kestrio
