#include "platform/LongestStall.h"
#include "platform/OtherProgram.h"
#include "platform/PlatformServices.h"
#include "platform/XDesk.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

struct TextPastingTest : testing::Test {
    std::shared_ptr<Pasteboard> pasteboard = makePlatformServices().pasteboard;
    WindowManager manager;
    QWidget window;
    QLineEdit field{&window};
    QLineEdit other{&window};

    TextPastingTest() {
        window.resize(300, 100);
        other.move(0, 50);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(waitUntil([this] { return window.isActiveWindow(); }));
        field.setFocus();
        EXPECT_TRUE(waitUntil([this] { return field.hasFocus(); }));
    }

    static void press(QWidget& widget, Qt::Key key, const QString& text = {},
                      Qt::KeyboardModifiers held = {}) {
        QKeyEvent event(QEvent::KeyPress, key, held, text);
        QCoreApplication::sendEvent(&widget, &event);
    }

    static void paste(QWidget& widget) { press(widget, Qt::Key_V, {}, Qt::ControlModifier); }
};

TEST_F(TextPastingTest, TextComesInPlaceOfTheSelectionAndBeforeWhatIsTypedLater) {
    const OtherProgram program("UTF8_STRING", "two\nlines\n");
    field.setText(QStringLiteral("all of it"));
    field.selectAll();
    paste(field);
    press(field, Qt::Key_X, QStringLiteral("x"));
    EXPECT_TRUE(waitUntil([this] { return field.text() == QStringLiteral("two linesx"); }))
        << qPrintable(field.text());
    field.undo();
    field.undo();
    EXPECT_EQ(field.text(), QStringLiteral("all of it"));
}

TEST_F(TextPastingTest, ASilentOwnerHoldsUpNeitherChangesNorKeys) {
    field.setText(QStringLiteral("a"));
    const OtherProgram program("UTF8_STRING", "never seen");
    program.fallSilent();
    const LongestStall stall;
    paste(field);
    press(field, Qt::Key_B, QStringLiteral("b"));
    paste(field);
    EXPECT_TRUE(waitUntil([this] { return field.text() == QStringLiteral("ab"); }));
    EXPECT_LT(stall.milliseconds(), noticeableStall);
}

TEST_F(TextPastingTest, AFieldThatHasLostTheFocusGetsNothing) {
    const OtherProgram program("UTF8_STRING", "late");
    paste(field);
    other.setFocus();
    runUntilDone(pasteboard->read(PasteboardKind::text));
    EXPECT_EQ(field.text(), QString());
}

}  // namespace
}  // namespace kestrio
