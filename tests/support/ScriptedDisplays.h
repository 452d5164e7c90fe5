#pragma once

#include "platform/Displays.h"

#include <algorithm>

namespace kestrio {

/// Monitors that a test plugs in, and a pointer that it moves. Begins without any.
class ScriptedDisplays : public Displays {
  public:
    QPointF pointer;

    void setDisplays(std::vector<Display> displays) {
        std::stable_partition(displays.begin(), displays.end(),
                              [](const Display& display) { return display.isPrimary; });
        displays_ = std::move(displays);
        Q_EMIT changed();
    }

    std::vector<Display> displays() const override { return displays_; }
    QPointF pointerPosition() const override { return pointer; }

  private:
    std::vector<Display> displays_;
};

}  // namespace kestrio
