#pragma once

#include "platform/ScreenPermission.h"

namespace kestrio {

/// A permission that a test gives, and a user who answers the question for it.
class ScriptedScreenPermission : public ScreenPermission {
  public:
    bool isGranted = true;
    bool userGrants = false;  ///< what the user answers when asked
    mutable int preflightCount = 0;
    int requestCount = 0;
    int settingsCount = 0;  ///< how often the settings were opened

    bool preflight() const override {
        ++preflightCount;
        return isGranted;
    }

    bool request() override {
        ++requestCount;
        isGranted = isGranted || userGrants;
        return isGranted;
    }

    void openSettings() override { ++settingsCount; }
};

}  // namespace kestrio
