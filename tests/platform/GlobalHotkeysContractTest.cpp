#include "platform/XDesk.h"
#include "platform/linux/x11/X11GlobalHotkeys.h"
#include "support/Contract.h"
#include "support/ScriptedGlobalHotkeys.h"

#include "platform/KeySymbols.h"

#include <QKeyEvent>

namespace kestrio {
namespace {

constexpr KeyCombination controlShiftA{0, KeyCombination::control | KeyCombination::shift};
constexpr KeyCombination altSuper4{21, KeyCombination::option | KeyCombination::command};

void runXdotool(const QStringList& arguments) {
    ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
}

void setLayout(const char* layout) {
    ASSERT_EQ(QProcess::execute(QStringLiteral("setxkbmap"), {QString::fromLatin1(layout)}), 0);
}

/// Another program that holds key combinations.
class OtherProgram {
  public:
    OtherProgram() { EXPECT_TRUE(connection_.open()); }

    /// Only while one lock key is on, which is enough to be in the way.
    void grab(xcb_keycode_t key, std::uint16_t modifiers) {
        const XcbReply<xcb_generic_error_t> error(xcb_request_check(
            connection_.handle(),
            xcb_grab_key_checked(connection_.handle(), false, connection_.screen().root, modifiers,
                                 key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
        EXPECT_FALSE(error) << "somebody holds it";
    }

    bool takesKeyboard() {
        const XcbReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
            connection_.handle(),
            xcb_grab_keyboard(connection_.handle(), false, connection_.screen().root,
                              XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
            nullptr));
        xcb_ungrab_keyboard(connection_.handle(), XCB_CURRENT_TIME);
        xcb_flush(connection_.handle());
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    }

  private:
    XcbConnection connection_;
};

constexpr xcb_keycode_t keycodeA = 38;
constexpr std::uint16_t controlShift = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT;

/// A service beside the user who presses keys.
struct Desk {
    virtual ~Desk() = default;
    virtual GlobalHotkeys& hotkeys() = 0;
    virtual void pressControlShiftA() = 0;
    virtual void takeControlShiftA() = 0;
};

struct ScriptedDesk : Desk {
    ScriptedGlobalHotkeys service;
    GlobalHotkeys& hotkeys() override { return service; }
    void pressControlShiftA() override {
        for (const auto& [id, combination] : std::map(service.registered))
            if (combination == controlShiftA) service.press(id);
    }
    void takeControlShiftA() override { service.taken.push_back(controlShiftA); }
};

struct XServerDesk : Desk {
    X11GlobalHotkeys service;
    OtherProgram other;
    GlobalHotkeys& hotkeys() override { return service; }
    void pressControlShiftA() override {
        runXdotool({QStringLiteral("key"), QStringLiteral("ctrl+shift+a")});
    }
    void takeControlShiftA() override { other.grab(keycodeA, controlShift | XCB_MOD_MASK_LOCK); }
};

const Candidate<Desk> candidates[] = {
    candidate<Desk, ScriptedDesk>("scripted"),
    candidate<Desk, XServerDesk>("xserver"),
};

/// Runs the loop so long that what is not to come would have come.
void runLoopAWhile(int milliseconds = 100) {
    QTimer::singleShot(milliseconds, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
}

class GlobalHotkeysContract : public testing::TestWithParam<Candidate<Desk>> {
  protected:
    GlobalHotkeysContract() {
        QObject::connect(&hotkeys_, &GlobalHotkeys::pressed,
                         [this](int id) { heard_.push_back(id); });
    }

    std::shared_ptr<Desk> desk_ = GetParam().make();
    GlobalHotkeys& hotkeys_ = desk_->hotkeys();
    std::vector<int> heard_;
};

TEST_P(GlobalHotkeysContract, TellOfPressesUntilTheyAreUnregistered) {
    EXPECT_EQ(hotkeys_.registerHotkey(7, controlShiftA), HotkeyRegistration::registered);
    EXPECT_EQ(hotkeys_.registerHotkey(8, altSuper4), HotkeyRegistration::registered);
    desk_->pressControlShiftA();
    EXPECT_TRUE(waitUntil([&] { return heard_.size() == 1; }));
    runLoopAWhile();
    desk_->pressControlShiftA();
    EXPECT_TRUE(waitUntil([&] { return heard_.size() == 2; }));
    hotkeys_.unregisterHotkey(7);
    hotkeys_.unregisterHotkey(99);
    desk_->pressControlShiftA();
    runLoopAWhile();
    EXPECT_EQ(heard_, (std::vector{7, 7}));
}

TEST_P(GlobalHotkeysContract, ReplaceWhatAnIdStoodFor) {
    EXPECT_EQ(hotkeys_.registerHotkey(1, controlShiftA), HotkeyRegistration::registered);
    EXPECT_EQ(hotkeys_.registerHotkey(2, controlShiftA), HotkeyRegistration::taken);
    EXPECT_EQ(hotkeys_.registerHotkey(1, altSuper4), HotkeyRegistration::registered);
    desk_->pressControlShiftA();
    runLoopAWhile();
    EXPECT_TRUE(heard_.empty());
    EXPECT_EQ(hotkeys_.registerHotkey(2, controlShiftA), HotkeyRegistration::registered);
}

TEST_P(GlobalHotkeysContract, AreRefusedWhereOthersHoldThemOrThereIsNoSuchKey) {
    desk_->takeControlShiftA();
    EXPECT_EQ(hotkeys_.registerHotkey(1, controlShiftA), HotkeyRegistration::taken);
    EXPECT_EQ(hotkeys_.registerHotkey(2, {200, KeyCombination::control}),
              HotkeyRegistration::impossible);
    desk_->pressControlShiftA();
    runLoopAWhile();
    EXPECT_TRUE(heard_.empty());
}

INSTANTIATE_TEST_SUITE_P(All, GlobalHotkeysContract, testing::ValuesIn(candidates), candidateName);

class X11Hotkeys : public testing::Test {
  protected:
    X11Hotkeys() {
        QObject::connect(&hotkeys_, &GlobalHotkeys::pressed, [this](int) { ++count_; });
    }

    void press() { runXdotool({QStringLiteral("key"), QStringLiteral("ctrl+shift+a")}); }

    X11GlobalHotkeys hotkeys_;
    int count_ = 0;
};

TEST_F(X11Hotkeys, WorkUnderEveryLockKey) {
    ASSERT_EQ(hotkeys_.registerHotkey(1, controlShiftA), HotkeyRegistration::registered);
    const QStringList locks{QStringLiteral("Caps_Lock"), QStringLiteral("Num_Lock")};
    int expected = 0;
    // On, both on, off, both off.
    for (const QString& lock : locks + locks) {
        runXdotool({QStringLiteral("key"), lock});
        press();
        ++expected;
        EXPECT_TRUE(waitUntil([&] { return count_ == expected; })) << lock.toStdString();
        runLoopAWhile(40);
    }
}

TEST_F(X11Hotkeys, LeaveNothingHeldWhenTheyAreTaken) {
    OtherProgram first;
    first.grab(keycodeA, controlShift | XCB_MOD_MASK_2);
    ASSERT_EQ(hotkeys_.registerHotkey(1, controlShiftA), HotkeyRegistration::taken);
    OtherProgram second;
    second.grab(keycodeA, controlShift);
    second.grab(keycodeA, controlShift | XCB_MOD_MASK_LOCK);
}

TEST_F(X11Hotkeys, FireOnceWhileHeldAndLeaveTheKeyboardFree) {
    ASSERT_EQ(hotkeys_.registerHotkey(1, controlShiftA), HotkeyRegistration::registered);
    ASSERT_EQ(
        QProcess::execute(QStringLiteral("xset"), {QStringLiteral("r"), QStringLiteral("rate"),
                                                   QStringLiteral("100"), QStringLiteral("50")}),
        0);
    runXdotool({QStringLiteral("keydown"), QStringLiteral("ctrl"), QStringLiteral("keydown"),
                QStringLiteral("shift"), QStringLiteral("keydown"), QStringLiteral("a")});
    EXPECT_TRUE(waitUntil([&] { return count_ == 1; }));
    OtherProgram overlay;
    EXPECT_TRUE(overlay.takesKeyboard());
    runLoopAWhile(400);
    runXdotool({QStringLiteral("keyup"), QStringLiteral("a"), QStringLiteral("keyup"),
                QStringLiteral("shift"), QStringLiteral("keyup"), QStringLiteral("ctrl")});
    runLoopAWhile();
    EXPECT_EQ(count_, 1);
    press();
    EXPECT_TRUE(waitUntil([&] { return count_ == 2; }));
}

TEST_F(X11Hotkeys, AreOfAnyKey) {
    struct Case {
        quint32 symbol;
        int modifiers;
        const char* keys;
    };
    const Case cases[] = {
        {0xff61, 0, "Print"},
        {0xff61, KeyCombination::option, "alt+Print"},
        {0xff63, KeyCombination::control, "ctrl+Insert"},
        {',', KeyCombination::command, "super+comma"},
        {0xff95, KeyCombination::control, "ctrl+KP_7"},
    };
    int expected = 0;
    for (const Case& each : cases) {
        ASSERT_EQ(hotkeys_.registerHotkey(1, {keyCodeOfSymbol(each.symbol), each.modifiers}),
                  HotkeyRegistration::registered)
            << each.keys;
        runXdotool({QStringLiteral("key"), QString::fromLatin1(each.keys)});
        ++expected;
        EXPECT_TRUE(waitUntil([&] { return count_ == expected; })) << each.keys;
        runLoopAWhile(40);
    }
    EXPECT_EQ(hotkeys_.registerHotkey(1, {keyCodeOfSymbol(0x6ff), KeyCombination::control}),
              HotkeyRegistration::impossible)
        << "a letter that this keyboard lacks";
}

TEST_F(X11Hotkeys, FollowTheKeyboardLayout) {
    ASSERT_EQ(hotkeys_.registerHotkey(1, controlShiftA), HotkeyRegistration::registered);
    int expected = 0;
    // The key moves under fr, and ru has no such letter: there the place of a US keyboard counts.
    struct Case {
        const char* layout;
        const char* keycode;
    };
    for (const auto& [layout, keycode] : {Case{"fr", "24"}, Case{"ru", "38"}, Case{"us", "38"}}) {
        setLayout(layout);
        runLoopAWhile(300);
        runXdotool({QStringLiteral("keydown"), QStringLiteral("37"), QStringLiteral("keydown"),
                    QStringLiteral("50"), QStringLiteral("key"), QString::fromLatin1(keycode),
                    QStringLiteral("keyup"), QStringLiteral("50"), QStringLiteral("keyup"),
                    QStringLiteral("37")});
        ++expected;
        EXPECT_TRUE(waitUntil([&] { return count_ == expected; })) << layout;
        runLoopAWhile(40);
    }
}

TEST(X11KeyLookup, TellsTheUnshiftedKeyOfAnyLayout) {
    installX11KeyLookup();
    struct Case {
        const char* layout;
        quint32 keycode;
        int key;
        std::optional<int> code;
    };
    const Case cases[] = {
        {"us", 10, Qt::Key_Exclam, 18},
        {"de", 20, Qt::Key_Question, keyCodeOfSymbol(0xdf)},
        {"us", 107, Qt::Key_Print, keyCodeOfSymbol(0xff61)},
        {"us", 64, Qt::Key_Alt, std::nullopt},
        {"de", 108, Qt::Key_AltGr, std::nullopt},
        {"de", 29, Qt::Key_Z, 6},
        {"fr", 13, Qt::Key_4, 21},
        {"ru", 24, 0x419, 12},
        {"us", 37, Qt::Key_Control, std::nullopt},
    };
    for (const Case& each : cases) {
        setLayout(each.layout);
        const QKeyEvent event(QEvent::KeyPress, each.key, Qt::ShiftModifier, each.keycode, 0, 0);
        const auto combination = combinationOf(event);
        EXPECT_EQ(combination ? std::optional(combination->keyCode) : std::nullopt, each.code)
            << each.layout << ' ' << each.keycode;
    }
    setLayout("us");
    setUnshiftedKeyLookup({});
}

}  // namespace
}  // namespace kestrio
