#pragma once

#include "app/settings/SettingsTab.h"

namespace kestrio {

/// Shows the settings window. Main thread.
class SettingsOpener {
  public:
    virtual ~SettingsOpener() = default;

    /// Opens it, or brings it to the front, on that tab.
    virtual void open(SettingsTab tab) = 0;
    /// False where none is open.
    virtual bool bringToFront() = 0;
};

}  // namespace kestrio
