#pragma once

#include "platform/VirtualKeys.h"

#include <cstdint>
#include <vector>

#include <xcb/xcb.h>

namespace kestrio {

/// Keys and modifiers of the keyboard as the X server has them at one moment.
class X11Keymap {
  public:
    /// Asks the server and waits for it.
    explicit X11Keymap(xcb_connection_t* connection);

    /// The keys that give what a KeyCombination's code stands for without modifiers, else in
    /// another group or level; where a layout has no such letter at all, the key in its place on a
    /// US keyboard.
    std::vector<xcb_keycode_t> keycodesOf(int keyCode) const;
    /// The reverse; none for modifiers and for keys without a symbol.
    std::optional<int> codeOf(xcb_keycode_t keycode) const;
    /// The X modifiers of a mask of KeyCombination; none where the keyboard lacks one of them.
    std::optional<std::uint16_t> modifiersOf(int mask) const;
    /// Each combination of the lock keys, none of them first.
    std::vector<std::uint16_t> lockCombinations() const;

  private:
    std::vector<xcb_keycode_t> keycodesWith(xcb_keysym_t symbol) const;
    std::vector<xcb_keycode_t> keycodesOfKey(Qt::Key key) const;
    std::optional<Qt::Key> virtualKeyOf(xcb_keycode_t keycode, std::size_t index) const;
    std::vector<xcb_keycode_t> keycodesWith(xcb_keysym_t symbol, int firstColumn,
                                            int lastColumn) const;
    xcb_keysym_t symbolAt(std::size_t index, int column) const;
    /// The X modifiers that keys with one of these symbols set.
    std::uint16_t modifiersWith(std::initializer_list<xcb_keysym_t> symbols) const;

    xcb_keycode_t first_ = 0;
    int columns_ = 0;
    std::vector<xcb_keysym_t> symbols_;        // columns_ of them for each key from first_ on
    std::vector<xcb_keycode_t> modifierKeys_;  // the same number for each of eight modifiers
};

}  // namespace kestrio
