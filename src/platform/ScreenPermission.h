#pragma once

namespace kestrio {

/// Whether this program may read the screen. Main thread only.
class ScreenPermission {
  public:
    virtual ~ScreenPermission() = default;

    /// Asks nobody.
    virtual bool preflight() const = 0;
    /// Asks the user where the desktop has a question for it, and says whether it is granted.
    virtual bool request() = 0;
    /// Opens the place where the user changes it, where there is one.
    virtual void openSettings() = 0;
};

}  // namespace kestrio
