#pragma once

#include "platform/FloatingWindows.h"

namespace kestrio {

/// A desktop without translucency that does as it is asked.
class PlainFloatingWindows : public FloatingWindows {
  public:
    int preparedCount = 0;

    bool supportsTranslucency() const override { return false; }
    void prepare(QWindow&) override { ++preparedCount; }
    void roundCorners(QWindow&, double) override {}
};

}  // namespace kestrio
