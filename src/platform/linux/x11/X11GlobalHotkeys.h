#pragma once

#include "platform/GlobalHotkeys.h"
#include "platform/linux/x11/X11Keymap.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>
#include <map>

namespace kestrio {

/// Hotkeys as passive grabs on the root window, through Qt's own connection. The keyboard is free
/// again as soon as a press has come, so that whoever is informed can take it.
class X11GlobalHotkeys : public GlobalHotkeys, private QAbstractNativeEventFilter {
    Q_OBJECT

  public:
    X11GlobalHotkeys();
    ~X11GlobalHotkeys() override;

    HotkeyRegistration registerHotkey(int id, KeyCombination combination) override;
    void unregisterHotkey(int id) override;

  private:
    struct Grab {
        xcb_keycode_t keycode;
        std::uint16_t modifiers;  // without the lock keys
    };

    struct Hotkey {
        KeyCombination combination;
        std::vector<Grab> grabs;
    };

    bool connectToServer();
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void onPress(const xcb_key_press_event_t& event);
    /// Repeats of a held key come as presses; the release goes to the window with the focus.
    void lookForRelease();
    void regrab();
    HotkeyRegistration grab(Hotkey& hotkey);
    void release(const Hotkey& hotkey);

    xcb_connection_t* connection_ = nullptr;  // Qt's
    xcb_window_t root_ = XCB_WINDOW_NONE;
    int keyboardEvent_ = -1;  // the number of the keyboard extension's events
    std::optional<X11Keymap> keymap_;
    std::uint16_t lockMask_ = 0;
    std::map<int, Hotkey> hotkeys_;
    xcb_keycode_t heldKey_ = 0;
    bool isReleased_ = false;  // it was up when last looked
    QTimer heldTimer_;
    QTimer keymapTimer_;  // a new layout comes as a burst of events
};

/// Makes combinationOf() know the keys of the X keyboard.
void installX11KeyLookup();

}  // namespace kestrio
