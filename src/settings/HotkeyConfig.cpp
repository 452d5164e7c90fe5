#include "settings/HotkeyConfig.h"

namespace kestrio {

namespace {

struct KeyName {
    int keyCode;
    const char* name;
};

constexpr std::array<KeyName, 61> keyNames = {{
    {0, "A"},      {1, "S"},    {2, "D"},     {3, "F"},     {4, "H"},     {5, "G"},    {6, "Z"},
    {7, "X"},      {8, "C"},    {9, "V"},     {11, "B"},    {12, "Q"},    {13, "W"},   {14, "E"},
    {15, "R"},     {16, "Y"},   {17, "T"},    {18, "1"},    {19, "2"},    {20, "3"},   {21, "4"},
    {22, "6"},     {23, "5"},   {24, "="},    {25, "9"},    {26, "7"},    {27, "-"},   {28, "8"},
    {29, "0"},     {30, "]"},   {31, "O"},    {32, "U"},    {33, "["},    {34, "I"},   {35, "P"},
    {36, "↩"},     {37, "L"},   {38, "J"},    {40, "K"},    {45, "N"},    {46, "M"},   {48, "⇥"},
    {49, "Space"}, {51, "⌫"},   {53, "⎋"},    {96, "F5"},   {97, "F6"},   {98, "F7"},  {99, "F3"},
    {100, "F8"},   {101, "F9"}, {103, "F11"}, {109, "F10"}, {111, "F12"}, {118, "F4"}, {120, "F2"},
    {122, "F1"},   {123, "←"},  {124, "→"},   {125, "↓"},   {126, "↑"},
}};

QString keyName(int keyCode, const QString& other) {
    for (const KeyName& row : keyNames) {
        if (row.keyCode == keyCode) return QString::fromUtf8(row.name);
    }
    return other;
}

}  // namespace

QString HotkeyConfig::displayString(const QString& otherKey) const {
    QString text;
    if (carbonModifiers & control) text += u'⌃';
    if (carbonModifiers & option) text += u'⌥';
    if (carbonModifiers & shift) text += u'⇧';
    if (carbonModifiers & command) text += u'⌘';
    return text + keyName(keyCode, otherKey);
}

}  // namespace kestrio
