#pragma once

#include "platform/LoginItem.h"

#include <QString>

namespace kestrio {

/// An entry in the user's autostart folder, as XDG desktops read it. It names this program by its
/// absolute path; an entry that a desktop's settings switched off counts as not registered.
class XdgLoginItem : public LoginItem {
  public:
    bool isRegistered() const override;
    void registerItem() override;
    void unregisterItem() override;
};

/// A path as one argument of an Exec line.
QString quotedForExec(const QString& path);

}  // namespace kestrio
