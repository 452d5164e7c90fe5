#include "EditorFixture.h"

#include "editor/keyboard/AnnotationKeyboardHandler.h"
#include "editor/keyboard/ShortcutInfo.h"

namespace kestrio {
namespace {

constexpr Qt::KeyboardModifiers plain = Qt::NoModifier, shift = Qt::ShiftModifier,
                                command = Qt::ControlModifier, control = Qt::MetaModifier,
                                option = Qt::AltModifier;

struct RecordingActions : EditorActions {
    QStringList asked;
    bool isOccupied = false;

    void copy() override { asked << QStringLiteral("copy"); }
    void paste() override { asked << QStringLiteral("paste"); }
    void pin() override { asked << QStringLiteral("pin"); }
    void save() override { asked << QStringLiteral("save"); }
    void share() override { asked << QStringLiteral("share"); }
    void pickColor() override { asked << QStringLiteral("pickColor"); }
    void closeWindow() override { asked << QStringLiteral("closeWindow"); }
    bool isBusy() const override { return isOccupied; }
};

struct Keyboard : EditorFixture {
    ShortcutHintManager hints{defaults};
    RecordingActions actions;
    AnnotationKeyboardHandler handler{*editor, actions, &hints};
    AnnotationViewModel& model = editor->annotationVM();

    void SetUp() override {
        editor->loadCapture({picture()});
        draw(AnnotationTool::number, {10, 10}, {10, 10});
        draw(AnnotationTool::number, {50, 50}, {50, 50});
        model.set_currentTool(AnnotationTool::select);
        model.selectAnnotation(std::nullopt);
        handler.activate();
    }

    bool press(int key, Qt::KeyboardModifiers modifiers = plain, const char* text = "") {
        return handler.handle({key, modifiers, QString::fromUtf8(text), false});
    }
};

TEST_F(Keyboard, LettersChooseTools) {
    const std::tuple<const char*, AnnotationTool> rows[] = {
        {"a", AnnotationTool::arrow},     {"m", AnnotationTool::measurement},
        {"r", AnnotationTool::rectangle}, {"o", AnnotationTool::circle},
        {"t", AnnotationTool::text},      {"n", AnnotationTool::number},
        {"b", AnnotationTool::brush},     {"h", AnnotationTool::highlighter},
        {"u", AnnotationTool::blur},      {"e", AnnotationTool::eraser},
        {"v", AnnotationTool::select},
    };
    for (const auto& [letter, tool] : rows) {
        model.selectAll();
        model.set_isMultiSelectMode(true);
        EXPECT_TRUE(press(0, plain, letter));
        EXPECT_EQ(model.currentTool(), tool) << letter;
        EXPECT_FALSE(model.selectedAnnotation()) << letter;
        EXPECT_TRUE(model.selectedAnnotations().empty()) << letter;
    }
    EXPECT_EQ(hints.usedShortcuts().size(), std::size(rows));
    model.selectAll();
    EXPECT_TRUE(press(Qt::Key_V, plain, "v"));
    EXPECT_EQ(model.selectedAnnotations().size(), 2u) << "the same tool again";
    EXPECT_TRUE(press(Qt::Key_T, shift, "T"));
    EXPECT_EQ(model.currentTool(), AnnotationTool::text);
}

TEST_F(Keyboard, OthersGetWhatIsNotForTheAnnotations) {
    const std::tuple<int, Qt::KeyboardModifiers, const char*> rows[] = {
        {Qt::Key_T, control, "t"},
        {Qt::Key_T, option, "t"},
        {Qt::Key_T, command, "\x14"},
        {Qt::Key_A, command | option, "\x01"},
        {Qt::Key_A, command | shift, "\x01"},
        {Qt::Key_A, command | control, "\x01"},
        {Qt::Key_BracketRight, command, "]"},
        {Qt::Key_Delete, plain, "\x7f"},
        {Qt::Key_Shift, shift, ""},
        {Qt::Key_Z, command, "\x1a"},
        {Qt::Key_I, control, "i"},
        {Qt::Key_Slash, plain, "/"},
    };
    for (const auto& [key, modifiers, text] : rows)
        EXPECT_FALSE(press(key, modifiers, text)) << key;
    EXPECT_FALSE(handler.handle({Qt::Key_T, plain, QStringLiteral("t"), true}))
        << "typed in a text";
    handler.deactivate();
    EXPECT_FALSE(press(Qt::Key_T, plain, "t"));
    handler.activate();
    editor->leaveAnnotationMode();
    EXPECT_FALSE(press(Qt::Key_T, plain, "t"));
    EXPECT_EQ(model.currentTool(), AnnotationTool::select);
    EXPECT_TRUE(model.selectedAnnotations().empty() && hints.usedShortcuts().empty());
    editor.reset();
    EXPECT_FALSE(press(Qt::Key_T, plain, "t"));
}

TEST_F(Keyboard, ActsOnTheSelection) {
    const QUuid lower = model.annotations()[0].id();
    model.selectAnnotation(model.annotations()[0]);
    EXPECT_TRUE(press(Qt::Key_BracketRight, command));
    EXPECT_EQ(editor->annotations().back().id(), lower);
    EXPECT_TRUE(press(Qt::Key_BracketLeft, command));
    EXPECT_EQ(editor->annotations().front().id(), lower);
    EXPECT_TRUE(press(Qt::Key_A, command, "\x01"));
    EXPECT_EQ(model.selectedAnnotations().size(), 2u);
    editor->set_isShortcutOverlayVisible(true);
    EXPECT_FALSE(press(Qt::Key_Backspace, plain, "\b")) << "the list of shortcuts is in front";
    editor->set_isShortcutOverlayVisible(false);
    EXPECT_TRUE(press(Qt::Key_Backspace, plain, "\b"));
    EXPECT_TRUE(editor->annotations().empty());
    EXPECT_FALSE(press(Qt::Key_Backspace, plain, "\b"));
}

TEST_F(Keyboard, TogglesTheListOfShortcuts) {
    EXPECT_TRUE(press(Qt::Key_Question, shift, "?"));
    EXPECT_TRUE(editor->isShortcutOverlayVisible());
    EXPECT_TRUE(press(Qt::Key_Slash, shift, "/"));
    EXPECT_FALSE(editor->isShortcutOverlayVisible());
    EXPECT_TRUE(press(Qt::Key_Question, plain, "?"));
    EXPECT_TRUE(press(Qt::Key_Escape, plain, "\x1b"));
    EXPECT_FALSE(editor->isShortcutOverlayVisible());
}

TEST_F(Keyboard, CropModeTakesReturnAndEscape) {
    editor->enterCropMode();
    EXPECT_FALSE(press(Qt::Key_T, plain, "t"));
    EXPECT_TRUE(press(Qt::Key_Escape, plain, "\x1b"));
    EXPECT_FALSE(editor->isCropMode());
    editor->enterCropMode();
    editor->cropSession().set_cropRect({0, 0, 50, 50});
    EXPECT_TRUE(press(Qt::Key_Return, plain, "\r"));
    EXPECT_EQ(editor->screenshot().pixelSize(), QSize(50, 50));
    EXPECT_FALSE(press(Qt::Key_Return, plain, "\r"));
}

TEST_F(Keyboard, EscapeLeavesWhatIsInnermost) {
    model.set_currentTool(AnnotationTool::arrow);
    startDrawing(model, {1, 1});
    editor->set_isShortcutOverlayVisible(true);
    EXPECT_TRUE(press(Qt::Key_Escape));
    EXPECT_FALSE(model.gesture());
    EXPECT_TRUE(press(Qt::Key_Escape));
    EXPECT_FALSE(editor->isShortcutOverlayVisible());
    EXPECT_TRUE(press(Qt::Key_Escape));
    EXPECT_FALSE(editor->isAnnotationMode());
    EXPECT_FALSE(press(Qt::Key_Escape)) << "there is nothing to leave";
    editor->toggleColorPicker();
    EXPECT_TRUE(press(Qt::Key_Escape));
    EXPECT_EQ(actions.asked, QStringList{QStringLiteral("pickColor")});
}

// A command whose key another one of its scope always takes could never be done by it.
TEST_F(Keyboard, EveryCommandIsReachedByItsKeys) {
    for (const EditorCommand& each : editorCommands()) {
        if (each.scope == CommandScope::pointer) continue;
        EXPECT_TRUE(each.run) << each.id;
        EXPECT_EQ(editorCommand(QString::fromLatin1(each.id)), &each) << "its name is its own";
        for (const QKeySequence& keys : keysOf(each)) {
            EXPECT_EQ(keys.count(), 1) << each.id;
            EXPECT_NE(keys[0].key(), Qt::Key_unknown) << each.id;
            const auto rival = std::ranges::find_if(editorCommands(), [&](const auto& other) {
                return &other < &each && other.scope == each.scope && !other.isEnabled &&
                       keysOf(other).contains(keys);
            });
            EXPECT_EQ(rival, editorCommands().end()) << each.id;
        }
        if (each.scope != CommandScope::canvas) continue;
        const auto letter = keysOf(each).front()[0].key();
        EXPECT_FALSE(letter < Qt::Key_Escape && annotationToolOfKey(QChar(letter)))
            << each.id << " is out of reach while annotating";
    }
}

TEST_F(Keyboard, CommandsThatCannotBeDoneAreNotEnabled) {
    const auto isOn = [this](const char* id) {
        return isEnabled(*editorCommand(QString::fromLatin1(id)), *editor, actions);
    };
    EXPECT_TRUE(isOn("undo") && isOn("save") && isOn("copy"));
    EXPECT_FALSE(isOn("redo") || isOn("delete") || isOn("sendToBack") || isOn("pin"));
    model.selectAll();
    EXPECT_TRUE(isOn("delete") && isOn("sendToBack"));
    actions.isOccupied = true;
    EXPECT_FALSE(isOn("save") || isOn("copy") || isOn("share"));
}

TEST(ShortcutHints, AreGivenOnceAndOnlyForWhatIsNotKnown) {
    const auto defaults = std::make_shared<MemoryUserDefaults>();
    defaults->setData(QStringLiteral("com.kestrio.dismissedHints"), "[\"arrow\"");
    {
        ShortcutHintManager hints(defaults);
        EXPECT_TRUE(hints.hintsEnabled());
        EXPECT_EQ(hints.takeHint(QStringLiteral("arrow")),
                  QStringLiteral("Tip: Press A to switch to Arrow tool"));
        EXPECT_EQ(hints.takeHint(QStringLiteral("redo")),
                  QStringLiteral("Tip: Press Ctrl+Shift+Z to redo"));
        EXPECT_FALSE(hints.takeHint(QStringLiteral("measurement"))) << "it has no tip";
        int changes = 0;
        QObject::connect(&hints, &ShortcutHintManager::usedShortcutsChanged, [&] { ++changes; });
        hints.recordShortcutUsed(QStringLiteral("undo"));
        hints.recordShortcutUsed(QStringLiteral("undo"));
        EXPECT_EQ(changes, 1);
        EXPECT_FALSE(hints.takeHint(QStringLiteral("undo")));
        EXPECT_EQ(defaults->data(QStringLiteral("com.kestrio.usedShortcuts")),
                  QByteArray("[\"undo\"]"));
        hints.set_hintsEnabled(false);
        EXPECT_FALSE(hints.isHintDue(QStringLiteral("text")));
    }
    ShortcutHintManager later(defaults);
    EXPECT_FALSE(later.hintsEnabled());
    later.set_hintsEnabled(true);
    EXPECT_EQ(defaults->boolean(QStringLiteral("com.kestrio.hintsEnabled")), true);
    EXPECT_FALSE(later.isHintDue(QStringLiteral("undo")) || later.takeHint(QStringLiteral("redo")));
    EXPECT_TRUE(later.isHintDue(QStringLiteral("text")));
}

TEST(Shortcuts, AreShownInWords) {
    QStringList list;
    for (const auto& category : shortcutCategories)
        for (const ShortcutInfo& info : ShortcutInfo::all(category.value))
            list << info.id + u' ' + info.shortcut;
    for (const char* expected : {"circle O", "cycleSelection Alt+Click", "redo Ctrl+Shift+Z",
                                 "zoomIn Ctrl++", "annotate D", "showShortcuts ?"})
        EXPECT_TRUE(list.contains(QString::fromLatin1(expected))) << expected;
    EXPECT_EQ(list.removeDuplicates(), 0);
}

}  // namespace
}  // namespace kestrio
