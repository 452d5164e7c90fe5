#pragma once

#include "platform/ScreenPermission.h"

namespace kestrio {

/// A permission that a test gives, and a user who answers the question for it.
class ScriptedScreenPermission : public ScreenPermission {
  public:
    bool isGranted = true;
    bool userGrants = false;  ///< what the user answers when asked
    QString insurmountable;   ///< what no permission would change; empty for none
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

    QString obstacle() const override { return insurmountable; }
    void openSettings() override { ++settingsCount; }
};

}  // namespace kestrio
