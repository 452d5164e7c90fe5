#pragma once

#include "platform/VirtualKeys.h"

#include <QObject>

namespace kestrio {

enum class HotkeyRegistration {
    registered,
    taken,       ///< another program holds the combination
    impossible,  ///< the keyboard has no such key, or the desktop no such service
};

/// Key combinations that reach this program whatever window has the focus, under any lock key.
/// Main thread only. All registrations end with the object.
class GlobalHotkeys : public QObject {
    Q_OBJECT

  public:
    /// `id` is the caller's; one that is registered already is replaced.
    virtual HotkeyRegistration registerHotkey(int id, KeyCombination combination) = 0;
    /// Nothing happens for an id that is not registered.
    virtual void unregisterHotkey(int id) = 0;

    /// Once for each press; not for repeats while the key is held.
    Q_SIGNAL void pressed(int id);
};

}  // namespace kestrio
