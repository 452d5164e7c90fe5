#pragma once

#include "platform/FloatingWindows.h"

namespace kestrio {

/// By the window manager's hints and the shape extension.
class X11FloatingWindows : public FloatingWindows {
  public:
    bool supportsTranslucency() const override;
    void prepare(QWindow& window) override;
    void roundCorners(QWindow& window, double radius) override;
};

}  // namespace kestrio
