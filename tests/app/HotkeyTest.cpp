#include "app/hotkeys/HotkeyManager.h"
#include "app/settings/ShortcutRecorder.h"
#include "platform/KeySymbols.h"

#include "support/ScriptedGlobalHotkeys.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QKeyEvent>

namespace kestrio {
namespace {

constexpr int controlOption = HotkeyConfig::control | HotkeyConfig::option;
constexpr int region = static_cast<int>(HotkeyAction::region);
constexpr int window = static_cast<int>(HotkeyAction::window);

struct HotkeyTest : testing::Test {
    std::shared_ptr<ScriptedGlobalHotkeys> keyboard = std::make_shared<ScriptedGlobalHotkeys>();
    std::shared_ptr<AppSettingsService> settings =
        std::make_shared<AppSettingsService>(std::make_shared<MemoryUserDefaults>());
    std::shared_ptr<HotkeyManager> manager = std::make_shared<HotkeyManager>(keyboard, settings);
    int regionCount = 0;

    HotkeyTest() {
        manager->setHandler(HotkeyAction::region, [this] { ++regionCount; });
        manager->setHandler(HotkeyAction::window, [] {});
    }
};

TEST_F(HotkeyTest, OnlyWhatDoesSomethingIsTakenFromOtherPrograms) {
    manager->registerHotkeys();
    EXPECT_EQ(keyboard->registered.size(), 2U);
    EXPECT_EQ(keyboard->registered.at(region), (KeyCombination{0, controlOption}));
    keyboard->press(region);
    EXPECT_EQ(regionCount, 0) << "not inside the desktop's dispatch";
    QCoreApplication::processEvents();
    EXPECT_EQ(regionCount, 1);
    manager->unregisterHotkeys();
    manager->set_isEnabled(false);
    manager->registerHotkeys();
    EXPECT_TRUE(keyboard->registered.empty());
}

TEST_F(HotkeyTest, ACombinationOfAnotherProgramLeavesTheOthersWorking) {
    keyboard->taken = {{0, controlOption}};
    manager->registerHotkeys();
    EXPECT_EQ(manager->state(HotkeyAction::region), HotkeyRegistration::taken);
    EXPECT_EQ(manager->state(HotkeyAction::window), HotkeyRegistration::registered);
    EXPECT_TRUE(keyboard->registered.contains(window));
}

TEST_F(HotkeyTest, OnlyChangedSettingsRegisterAnew) {
    manager->registerHotkeys();
    AppSettings changed = settings->load();
    const int before = keyboard->registrationCount;
    manager->update(changed);
    EXPECT_EQ(keyboard->registrationCount, before);
    changed.regionCaptureHotkey = {1, HotkeyConfig::command};
    settings->save(changed);
    manager->update(changed);
    EXPECT_EQ(keyboard->registered.at(region), (KeyCombination{1, HotkeyConfig::command}));
    EXPECT_TRUE(keyboard->registered.contains(window));
}

TEST(HotkeyConflict, NamesTheFirstOtherRowOfTheSameCombinationThatUsersSee) {
    const AppSettings settings;
    const auto conflict = [&](const HotkeyConfig& candidate) {
        return hotkeyConflict(settings, HotkeyAction::region, candidate, [](HotkeyAction action) {
            return action != HotkeyAction::recording;
        });
    };
    EXPECT_EQ(conflict(settings.windowCaptureHotkey), u"Conflicts with \"Window Capture\"");
    EXPECT_EQ(conflict(settings.recordingHotkey), u"") << "there is no such row";
    EXPECT_EQ(conflict(settings.regionCaptureHotkey), u"");
    EXPECT_EQ(conflict({0, HotkeyConfig::command}), u"");
}

TEST(HotkeyText, NamesEveryKey) {
    EXPECT_EQ(hotkeyText({0, HotkeyConfig::control | HotkeyConfig::option}), u"⌃⌥A");
    EXPECT_EQ(hotkeyText({keyCodeOfSymbol(0xff61), HotkeyConfig::shift}), u"⇧Print");
}

struct ShortcutRecorderTest : HotkeyTest {
    ShortcutRecorder recorder{manager, [this](const HotkeyConfig& candidate) {
                                  return hotkeyConflict(settings->load(), HotkeyAction::region,
                                                        candidate,
                                                        [](HotkeyAction) { return true; });
                              }};
    std::vector<HotkeyConfig> taken;
    QObject focus;

    ShortcutRecorderTest() {
        manager->registerHotkeys();
        QObject::connect(&recorder, &ShortcutRecorder::recorded,
                         [this](const HotkeyConfig& config) { taken.push_back(config); });
    }

    /// True where no window would see the key.
    bool press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        return QCoreApplication::sendEvent(&focus, &event);
    }
};

TEST_F(ShortcutRecorderTest, TakesWhatHoldsAModifierThatCounts) {
    struct Case {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        std::optional<HotkeyConfig> expected;
    };
    const Case cases[] = {
        {Qt::Key_K, Qt::NoModifier, std::nullopt},
        {Qt::Key_K, Qt::ShiftModifier, std::nullopt},
        {Qt::Key_Control, Qt::ControlModifier, std::nullopt},
        {Qt::Key_K, Qt::ShiftModifier | Qt::AltModifier,
         HotkeyConfig{40, HotkeyConfig::shift | HotkeyConfig::option}},
        {Qt::Key_F5, Qt::MetaModifier, HotkeyConfig{96, HotkeyConfig::command}},
        {Qt::Key_Insert, Qt::NoModifier, std::nullopt},
        {Qt::Key_Insert, Qt::ControlModifier,
         HotkeyConfig{keyCodeOfSymbol(0xff63), HotkeyConfig::control}},
        {Qt::Key_Print, Qt::NoModifier, HotkeyConfig{keyCodeOfSymbol(0xff61), 0}},
        {Qt::Key_Print, Qt::ShiftModifier,
         HotkeyConfig{keyCodeOfSymbol(0xff61), HotkeyConfig::shift}},
    };
    for (const Case& each : cases) {
        taken.clear();
        recorder.toggle();
        EXPECT_TRUE(keyboard->registered.empty()) << "the present combination reaches the recorder";
        EXPECT_TRUE(press(each.key, each.modifiers));
        EXPECT_EQ(recorder.isRecording(), !each.expected);
        EXPECT_EQ(taken.empty(), !each.expected);
        if (each.expected && !taken.empty()) {
            EXPECT_EQ(taken.front(), *each.expected);
        }
        recorder.stop();
        EXPECT_EQ(keyboard->registered.size(), 2U);
    }
}

TEST_F(ShortcutRecorderTest, AConflictIsToldAndRecordingGoesOn) {
    recorder.toggle();
    press(Qt::Key_W, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(recorder.conflictMessage(), u"Conflicts with \"Window Capture\"");
    EXPECT_TRUE(recorder.isRecording());
    EXPECT_TRUE(taken.empty());
    press(Qt::Key_A, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(taken.size(), 1U) << "its own present combination is no conflict";
    EXPECT_EQ(recorder.conflictMessage(), u"");
}

TEST_F(ShortcutRecorderTest, EscapeEndsItWithoutAChange) {
    recorder.toggle();
    EXPECT_TRUE(press(Qt::Key_Escape, Qt::ControlModifier));
    EXPECT_FALSE(recorder.isRecording());
    EXPECT_TRUE(taken.empty());
    EXPECT_EQ(keyboard->registered.size(), 2U);
}

}  // namespace
}  // namespace kestrio
