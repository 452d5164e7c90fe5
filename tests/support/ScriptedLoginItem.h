#pragma once

#include "platform/LoginItem.h"

namespace kestrio {

/// A login item in memory that refuses changes while `refusal` is not empty.
class ScriptedLoginItem : public LoginItem {
  public:
    bool isOn = false;
    QString refusal;  ///< the reason of the error

    bool isRegistered() const override { return isOn; }
    void registerItem() override { change(true); }
    void unregisterItem() override { change(false); }

  private:
    void change(bool toOn) {
        if (!refusal.isEmpty()) throw LoginItemError(refusal);
        isOn = toOn;
    }
};

}  // namespace kestrio
