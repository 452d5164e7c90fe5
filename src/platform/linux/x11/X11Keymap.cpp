#include "platform/linux/x11/X11Keymap.h"

#include "platform/KeySymbols.h"
#include "platform/linux/x11/XcbConnection.h"

#include <QLatin1StringView>

namespace kestrio {

namespace {

struct SymbolRow {
    Qt::Key key;
    xcb_keysym_t symbol;
};

// What is not a character of its own. The numbers are those of X11's keysymdef.h.
constexpr SymbolRow symbolRows[] = {
    {Qt::Key_Return, 0xff0d}, {Qt::Key_Tab, 0xff09},  {Qt::Key_Backspace, 0xff08},
    {Qt::Key_Escape, 0xff1b}, {Qt::Key_Left, 0xff51}, {Qt::Key_Up, 0xff52},
    {Qt::Key_Right, 0xff53},  {Qt::Key_Down, 0xff54},
};
constexpr xcb_keysym_t symbolF1 = 0xffbe;
constexpr xcb_keysym_t altL = 0xffe9;
constexpr xcb_keysym_t altR = 0xffea;
constexpr xcb_keysym_t superL = 0xffeb;
constexpr xcb_keysym_t superR = 0xffec;
constexpr xcb_keysym_t numLock = 0xff7f;
constexpr xcb_keysym_t scrollLock = 0xff14;

/// A row of a US keyboard with the keycode of its first key, as all X servers on Linux have it.
struct PhysicalRow {
    xcb_keycode_t first;
    QLatin1StringView keys;
};

constexpr PhysicalRow physicalRows[] = {
    {10, QLatin1StringView("1234567890-=")},
    {24, QLatin1StringView("QWERTYUIOP[]")},
    {38, QLatin1StringView("ASDFGHJKL")},
    {52, QLatin1StringView("ZXCVBNM")},
};

xcb_keysym_t symbolOf(Qt::Key key) {
    for (const SymbolRow& row : symbolRows)
        if (row.key == key) return row.symbol;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return symbolF1 + static_cast<xcb_keysym_t>(key - Qt::Key_F1);
    return QChar(static_cast<char16_t>(key)).toLower().unicode();
}

std::optional<Qt::Key> keyOfSymbol(xcb_keysym_t symbol) {
    for (const SymbolRow& row : symbolRows)
        if (row.symbol == symbol) return row.key;
    constexpr xcb_keysym_t symbolF12 = symbolF1 + 11;
    if (symbol >= symbolF1 && symbol <= symbolF12)
        return static_cast<Qt::Key>(Qt::Key_F1 + static_cast<int>(symbol - symbolF1));
    constexpr xcb_keysym_t lastPrintable = '~';
    if (symbol < ' ' || symbol > lastPrintable) return std::nullopt;
    return static_cast<Qt::Key>(QChar(static_cast<char16_t>(symbol)).toUpper().unicode());
}

std::optional<Qt::Key> known(std::optional<Qt::Key> key) {
    return key && virtualKeyCode(*key) ? key : std::nullopt;
}

}  // namespace

X11Keymap::X11Keymap(xcb_connection_t* connection) {
    const xcb_setup_t* setup = xcb_get_setup(connection);
    first_ = setup->min_keycode;
    const int count = setup->max_keycode - setup->min_keycode + 1;
    const auto mapping =
        xcb_get_keyboard_mapping(connection, first_, static_cast<std::uint8_t>(count));
    const auto modifiers = xcb_get_modifier_mapping(connection);
    const XcbReply<xcb_get_keyboard_mapping_reply_t> keys(
        xcb_get_keyboard_mapping_reply(connection, mapping, nullptr));
    const XcbReply<xcb_get_modifier_mapping_reply_t> modifierKeys(
        xcb_get_modifier_mapping_reply(connection, modifiers, nullptr));
    if (keys) {
        columns_ = keys->keysyms_per_keycode;
        const auto* begin = xcb_get_keyboard_mapping_keysyms(keys.get());
        symbols_.assign(begin, begin + xcb_get_keyboard_mapping_keysyms_length(keys.get()));
    }
    if (modifierKeys) {
        const auto* begin = xcb_get_modifier_mapping_keycodes(modifierKeys.get());
        modifierKeys_.assign(begin,
                             begin + xcb_get_modifier_mapping_keycodes_length(modifierKeys.get()));
    }
}

xcb_keysym_t X11Keymap::symbolAt(std::size_t index, int column) const {
    if (column >= columns_) return XCB_NO_SYMBOL;
    return symbols_[index * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column)];
}

std::vector<xcb_keycode_t> X11Keymap::keycodesWith(xcb_keysym_t symbol, int firstColumn,
                                                   int lastColumn) const {
    std::vector<xcb_keycode_t> found;
    if (columns_ == 0) return found;
    const std::size_t count = symbols_.size() / static_cast<std::size_t>(columns_);
    for (std::size_t i = 0; i < count; ++i)
        for (int column = firstColumn; column <= lastColumn; ++column)
            if (symbolAt(i, column) == symbol) {
                found.push_back(static_cast<xcb_keycode_t>(first_ + i));
                break;
            }
    return found;
}

std::vector<xcb_keycode_t> X11Keymap::keycodesWith(xcb_keysym_t symbol) const {
    // Columns are the two levels of the first group, then of the second, then the rest.
    for (const auto& [first, last] :
         {std::pair(0, 0), std::pair(2, 2), std::pair(0, columns_ - 1)}) {
        auto found = keycodesWith(symbol, first, last);
        if (!found.empty()) return found;
    }
    return {};
}

std::vector<xcb_keycode_t> X11Keymap::keycodesOf(int keyCode) const {
    if (isKeySymbol(keyCode)) return keycodesWith(symbolOfKeyCode(keyCode));
    const auto key = qtKey(keyCode);
    return key ? keycodesOfKey(*key) : std::vector<xcb_keycode_t>();
}

std::vector<xcb_keycode_t> X11Keymap::keycodesOfKey(Qt::Key key) const {
    auto found = keycodesWith(symbolOf(key));
    if (!found.empty()) return found;
    for (const PhysicalRow& row : physicalRows) {
        const qsizetype place = row.keys.indexOf(QChar(static_cast<char16_t>(key)));
        if (place >= 0) return {static_cast<xcb_keycode_t>(row.first + place)};
    }
    return {};
}

std::optional<int> X11Keymap::codeOf(xcb_keycode_t keycode) const {
    if (columns_ == 0 || keycode < first_) return std::nullopt;
    const std::size_t index = keycode - first_;
    if (index >= symbols_.size() / static_cast<std::size_t>(columns_)) return std::nullopt;
    if (const auto key = virtualKeyOf(keycode, index)) return virtualKeyCode(*key);
    const xcb_keysym_t symbol = symbolAt(index, 0);
    if (isModifierSymbol(symbol)) return std::nullopt;
    return keyCodeOfSymbol(symbol);
}

std::optional<Qt::Key> X11Keymap::virtualKeyOf(xcb_keycode_t keycode, std::size_t index) const {
    const auto unshifted = keyOfSymbol(symbolAt(index, 0));
    if (unshifted) return known(unshifted);
    if (const auto key = known(keyOfSymbol(symbolAt(index, 2)))) return key;
    for (const PhysicalRow& row : physicalRows) {
        if (keycode < row.first || keycode >= row.first + row.keys.size()) continue;
        const auto key = static_cast<Qt::Key>(row.keys[keycode - row.first].unicode());
        // Only where no other key of the layout gives it.
        if (keycodesOfKey(key) == std::vector<xcb_keycode_t>{keycode}) return key;
    }
    return std::nullopt;
}

std::uint16_t X11Keymap::modifiersWith(std::initializer_list<xcb_keysym_t> symbols) const {
    constexpr std::size_t modifierCount = 8;
    const std::size_t keysEach = modifierKeys_.size() / modifierCount;
    std::uint16_t found = 0;
    for (const xcb_keysym_t symbol : symbols)
        for (const xcb_keycode_t keycode : keycodesWith(symbol, 0, columns_ - 1))
            for (std::size_t i = 0; i < keysEach * modifierCount; ++i)
                if (modifierKeys_[i] == keycode)
                    found |= static_cast<std::uint16_t>(1U << (i / keysEach));
    return found;
}

std::optional<std::uint16_t> X11Keymap::modifiersOf(int mask) const {
    std::uint16_t modifiers = 0;
    const auto add = [&](int part, std::uint16_t found) {
        if (!(mask & part)) return true;
        // Of several modifiers one is enough.
        modifiers |= static_cast<std::uint16_t>(found & -found);
        return found != 0;
    };
    const bool hasAll = add(KeyCombination::shift, XCB_MOD_MASK_SHIFT) &&
                        add(KeyCombination::control, XCB_MOD_MASK_CONTROL) &&
                        add(KeyCombination::option, modifiersWith({altL, altR})) &&
                        add(KeyCombination::command, modifiersWith({superL, superR}));
    if (!hasAll) return std::nullopt;
    return modifiers;
}

std::vector<std::uint16_t> X11Keymap::lockCombinations() const {
    std::vector<std::uint16_t> combinations = {0};
    for (const std::uint16_t lock : {std::uint16_t{XCB_MOD_MASK_LOCK}, modifiersWith({numLock}),
                                     modifiersWith({scrollLock})}) {
        if (lock == 0) continue;
        const auto before = combinations;
        for (const std::uint16_t each : before)
            combinations.push_back(each | lock);
    }
    return combinations;
}

}  // namespace kestrio
