#include "platform/VirtualKeys.h"

#include "platform/KeySymbols.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <array>

namespace kestrio {

namespace {

struct KeyRow {
    int code;
    Qt::Key key;
};

constexpr std::array<KeyRow, 61> keyRows = {{
    {0, Qt::Key_A},      {1, Qt::Key_S},          {2, Qt::Key_D},
    {3, Qt::Key_F},      {4, Qt::Key_H},          {5, Qt::Key_G},
    {6, Qt::Key_Z},      {7, Qt::Key_X},          {8, Qt::Key_C},
    {9, Qt::Key_V},      {11, Qt::Key_B},         {12, Qt::Key_Q},
    {13, Qt::Key_W},     {14, Qt::Key_E},         {15, Qt::Key_R},
    {16, Qt::Key_Y},     {17, Qt::Key_T},         {18, Qt::Key_1},
    {19, Qt::Key_2},     {20, Qt::Key_3},         {21, Qt::Key_4},
    {22, Qt::Key_6},     {23, Qt::Key_5},         {24, Qt::Key_Equal},
    {25, Qt::Key_9},     {26, Qt::Key_7},         {27, Qt::Key_Minus},
    {28, Qt::Key_8},     {29, Qt::Key_0},         {30, Qt::Key_BracketRight},
    {31, Qt::Key_O},     {32, Qt::Key_U},         {33, Qt::Key_BracketLeft},
    {34, Qt::Key_I},     {35, Qt::Key_P},         {36, Qt::Key_Return},
    {37, Qt::Key_L},     {38, Qt::Key_J},         {40, Qt::Key_K},
    {45, Qt::Key_N},     {46, Qt::Key_M},         {48, Qt::Key_Tab},
    {49, Qt::Key_Space}, {51, Qt::Key_Backspace}, {53, Qt::Key_Escape},
    {96, Qt::Key_F5},    {97, Qt::Key_F6},        {98, Qt::Key_F7},
    {99, Qt::Key_F3},    {100, Qt::Key_F8},       {101, Qt::Key_F9},
    {103, Qt::Key_F11},  {109, Qt::Key_F10},      {111, Qt::Key_F12},
    {118, Qt::Key_F4},   {120, Qt::Key_F2},       {122, Qt::Key_F1},
    {123, Qt::Key_Left}, {124, Qt::Key_Right},    {125, Qt::Key_Down},
    {126, Qt::Key_Up},
}};

struct ModifierRow {
    int mask;
    Qt::KeyboardModifier modifier;
};

constexpr ModifierRow modifierRows[] = {
    {KeyCombination::command, Qt::MetaModifier},
    {KeyCombination::shift, Qt::ShiftModifier},
    {KeyCombination::option, Qt::AltModifier},
    {KeyCombination::control, Qt::ControlModifier},
};

/// What Shift makes of the keys of a US keyboard, undone.
Qt::Key withoutShift(Qt::Key key) {
    constexpr QLatin1StringView shifted(")!@#$%^&*(_+{}");
    constexpr QLatin1StringView plain("0123456789-=[]");
    if (key == Qt::Key_Backtab) return Qt::Key_Tab;
    for (qsizetype i = 0; i < shifted.size(); ++i)
        if (key == shifted[i].unicode()) return static_cast<Qt::Key>(plain[i].unicode());
    return key;
}

std::optional<int> codeOnUsKeyboard(Qt::Key key) {
    if (const auto code = virtualKeyCode(key)) return code;
    const auto symbol = keySymbol(key);
    return symbol ? std::optional(keyCodeOfSymbol(*symbol)) : std::nullopt;
}

UnshiftedKeyLookup& unshiftedKeyLookup() {
    static UnshiftedKeyLookup lookup;
    return lookup;
}

}  // namespace

std::optional<Qt::Key> qtKey(int virtualKeyCode) {
    for (const KeyRow& row : keyRows)
        if (row.code == virtualKeyCode) return row.key;
    return std::nullopt;
}

std::optional<int> virtualKeyCode(Qt::Key key) {
    for (const KeyRow& row : keyRows)
        if (row.key == key) return row.code;
    return std::nullopt;
}

Qt::KeyboardModifiers qtModifiers(int modifiers) {
    Qt::KeyboardModifiers found;
    for (const ModifierRow& row : modifierRows)
        found.setFlag(row.modifier, (modifiers & row.mask) != 0);
    return found;
}

int modifierMask(Qt::KeyboardModifiers modifiers) {
    int mask = 0;
    for (const ModifierRow& row : modifierRows)
        if (modifiers.testFlag(row.modifier)) mask |= row.mask;
    return mask;
}

QString shortcutText(const KeyCombination& shortcut) {
    const bool isSymbol = isKeySymbol(shortcut.keyCode);
    const auto key = isSymbol ? std::optional(Qt::Key_A) : qtKey(shortcut.keyCode);
    if (!key) return {};
    QString text = QKeySequence(QKeyCombination(qtModifiers(shortcut.modifiers), *key))
                       .toString(QKeySequence::NativeText);
    // The letter stood for the symbol.
    if (isSymbol) text = text.chopped(1) + keySymbolName(symbolOfKeyCode(shortcut.keyCode));
    return text.replace(QStringLiteral("Meta"), QStringLiteral("Super"));  // as keyboards call it
}

std::optional<KeyCombination> combinationOf(const QKeyEvent& event) {
    std::optional<int> code;
    if (const auto& lookup = unshiftedKeyLookup()) code = lookup(event);
    const Qt::Key typed = withoutShift(static_cast<Qt::Key>(event.key()));
    // A digit that a layout gives only with Shift is that digit, but on a number pad.
    const bool isPad = event.modifiers().testFlag(Qt::KeypadModifier);
    const auto known = virtualKeyCode(typed);
    if (code && isKeySymbol(*code) && known && !isPad) code = known;
    if (!code) code = codeOnUsKeyboard(typed);
    if (!code) return std::nullopt;
    return KeyCombination{*code, modifierMask(event.modifiers())};
}

std::optional<KeyCombination> combinationOf(QKeyCombination keys) {
    const auto code = codeOnUsKeyboard(keys.key());
    if (!code) return std::nullopt;
    return KeyCombination{*code, modifierMask(keys.keyboardModifiers())};
}

void setUnshiftedKeyLookup(UnshiftedKeyLookup lookup) {
    unshiftedKeyLookup() = std::move(lookup);
}

}  // namespace kestrio
