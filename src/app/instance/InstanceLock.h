#pragma once

#include <QString>

namespace kestrio {

/// Makes a program the only one: of all that try at the same moment one holds the lock. The system
/// lets go of it however the holder ends.
class InstanceLock {
  public:
    explicit InstanceLock(const QString& file);
    ~InstanceLock();

    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    bool isHeld() const { return isHeld_; }

  private:
    int descriptor_ = -1;
    bool isHeld_ = false;
};

}  // namespace kestrio
