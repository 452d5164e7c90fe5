#pragma once

#include <QString>

namespace kestrio {

/// Whether this program may read the screen. Main thread only.
class ScreenPermission {
  public:
    virtual ~ScreenPermission() = default;

    /// Asks nobody.
    virtual bool preflight() const = 0;
    /// Asks the user where the desktop has a question for it, and says whether it is granted.
    virtual bool request() = 0;
    /// What stands against it that no permission would change, for users, with what works
    /// meanwhile; empty where the user can grant it at openSettings().
    virtual QString obstacle() const = 0;
    /// Opens the place where the user changes it, where there is one.
    virtual void openSettings() = 0;
};

}  // namespace kestrio
