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
        {Qt::Key_Adiaeresis, Qt::NoModifier, std::nullopt},
    };
    for (const Case& each : cases)
        EXPECT_EQ(combinationOf(QKeyEvent(QEvent::KeyPress, each.key, each.modifiers)),
                  each.expected)
            << each.key;
}

TEST(VirtualKeys, ThePlatformKnowsBetter) {
    const QKeyEvent event(QEvent::KeyPress, Qt::Key_Exclam, Qt::ShiftModifier);
    setUnshiftedKeyLookup([](const QKeyEvent&) { return std::optional(Qt::Key_M); });
    EXPECT_EQ(combinationOf(event)->keyCode, 46);
    setUnshiftedKeyLookup([](const QKeyEvent&) { return std::optional<Qt::Key>(); });
    EXPECT_EQ(combinationOf(event)->keyCode, 18);
    setUnshiftedKeyLookup({});
}

}  // namespace
}  // namespace kestrio
