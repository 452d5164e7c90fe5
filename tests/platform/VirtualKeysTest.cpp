#include "platform/KeySymbols.h"
#include "platform/VirtualKeys.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(VirtualKeys, HaveOneKeyEach) {
    std::vector<Qt::Key> keys;
    for (int code = -1; code < 256; ++code) {
        const auto key = qtKey(code);
        if (!key) continue;
        EXPECT_EQ(virtualKeyCode(*key), code);
        keys.push_back(*key);
    }
    EXPECT_EQ(keys.size(), 61U);
    EXPECT_EQ(qtKey(21), Qt::Key_4);
    EXPECT_EQ(qtKey(22), Qt::Key_6);
    EXPECT_EQ(qtKey(123), Qt::Key_Left);
}

TEST(VirtualKeys, PressesAreTakenWithoutShift) {
    struct Case {
        int key;
        Qt::KeyboardModifiers modifiers;
        std::optional<KeyCombination> expected;
    };
    const Case cases[] = {
        {Qt::Key_A, Qt::ControlModifier, KeyCombination{0, KeyCombination::control}},
        {Qt::Key_Exclam, Qt::ShiftModifier | Qt::MetaModifier,
         KeyCombination{18, KeyCombination::shift | KeyCombination::command}},
        {Qt::Key_BraceRight, Qt::ShiftModifier, KeyCombination{30, KeyCombination::shift}},
        {Qt::Key_Backtab, Qt::ShiftModifier | Qt::AltModifier,
         KeyCombination{48, KeyCombination::shift | KeyCombination::option}},
        {Qt::Key_F12, Qt::KeypadModifier, KeyCombination{111, 0}},
        {Qt::Key_Control, Qt::ControlModifier, std::nullopt},
        {Qt::Key_AltGr, Qt::NoModifier, std::nullopt},
        {Qt::Key_Adiaeresis, Qt::NoModifier, KeyCombination{keyCodeOfSymbol(0xe4), 0}},
        {Qt::Key_Print, Qt::NoModifier, KeyCombination{keyCodeOfSymbol(0xff61), 0}},
        {Qt::Key_F14, Qt::ShiftModifier,
         KeyCombination{keyCodeOfSymbol(0xffcb), KeyCombination::shift}},
        {Qt::Key_Comma, Qt::ControlModifier,
         KeyCombination{keyCodeOfSymbol(','), KeyCombination::control}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(combinationOf(QKeyEvent(QEvent::KeyPress, each.key, each.modifiers)),
                  each.expected)
            << each.key;
}

TEST(VirtualKeys, ThePlatformKnowsBetter) {
    const QKeyEvent event(QEvent::KeyPress, Qt::Key_Exclam, Qt::ShiftModifier);
    setUnshiftedKeyLookup([](const QKeyEvent&) { return std::optional(46); });
    EXPECT_EQ(combinationOf(event)->keyCode, 46);
    setUnshiftedKeyLookup([](const QKeyEvent&) { return std::optional<int>(); });
    EXPECT_EQ(combinationOf(event)->keyCode, 18);
    setUnshiftedKeyLookup({});
}

TEST(KeySymbols, HaveNamesForUsers) {
    const std::pair<quint32, const char*> names[] = {
        {0xff61, "Print"}, {0xffff, "Del"},           {0xe4, "Ä"},         {',', ","},
        {0xffb7, "Num 7"}, {0xff95, "Num 7"},         {0xffab, "Num +"},   {0x01000416, "Ж"},
        {0xffca, "F13"},   {0x1008ff13, "Volume Up"}, {0x6ea, "Key 06ea"},
    };
    for (const auto& [symbol, name] : names)
        EXPECT_EQ(keySymbolName(symbol), QString::fromUtf8(name));
    EXPECT_EQ(shortcutText({keyCodeOfSymbol(0xff61), KeyCombination::shift}), u"Shift+Print");
    EXPECT_EQ(shortcutText({keyCodeOfSymbol(0xff61), 0}), u"Print");
    EXPECT_EQ(shortcutText({10, 0}), u"") << "a code that stands for no key";
}

TEST(KeySymbols, OnlyKeysThatTypeNothingStandAlone) {
    for (const quint32 symbol : {0xff61u, 0xff13u, 0xffcau, 0x1008ff14u})
        EXPECT_TRUE(standsAlone(keyCodeOfSymbol(symbol))) << symbol;
    for (const quint32 symbol : {0xe4u, 0xffffu, 0xff63u, 0xffb7u})
        EXPECT_FALSE(standsAlone(keyCodeOfSymbol(symbol))) << symbol;
    EXPECT_FALSE(standsAlone(96)) << "F5";
    EXPECT_FALSE(standsAlone(0));
}

}  // namespace
}  // namespace kestrio
