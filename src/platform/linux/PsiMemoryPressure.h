#pragma once

#include "platform/MemoryPressure.h"

#include <QSocketNotifier>

namespace kestrio {

/// Memory pressure through the kernel's pressure stall information; silent where the kernel has
/// none or refuses the trigger. Needs a Qt event dispatcher.
class PsiMemoryPressure : public MemoryPressure {
  public:
    PsiMemoryPressure();
    ~PsiMemoryPressure() override;

  private:
    /// A trigger holds as long as the file that it was written to stays open.
    struct Trigger {
        int file;
        std::unique_ptr<QSocketNotifier> notifier;
    };

    void watch(const char* trigger, MemoryPressureLevel level);

    std::vector<Trigger> triggers_;
};

}  // namespace kestrio
