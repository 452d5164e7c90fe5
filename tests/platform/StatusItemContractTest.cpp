#include "platform/XDesk.h"
#include "platform/linux/QtStatusItem.h"
#include "platform/linux/TrayMenu.h"
#include "support/ScriptedStatusItem.h"

#include <QApplication>
#include <QMenu>
#include <QTemporaryFile>

namespace kestrio {
namespace {

QMenu* shownMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

QIcon redIcon() {
    QPixmap picture(22, 22);
    picture.fill(Qt::red);
    return picture;
}

TEST(ScriptedStatusItem, BuildsItsMenuEachTimeItOpens) {
    ScriptedStatusItem item;
    EXPECT_TRUE(item.openMenu().empty());
    int built = 0;
    item.show(redIcon(), QStringLiteral("Kestrio"), [&] {
        return StatusMenu{{QString::number(++built), {}, {}, {}, true, {}}};
    });
    item.openMenu();
    EXPECT_EQ(item.openMenu().at(0).title, QStringLiteral("2"));
}

TEST(StatusMenu, ShowsEntriesAndRunsActionsOnceItHasGone) {
    QMenu menu;
    bool isRun = false;
    bool wasOpen = true;
    StatusMenu entries(4);
    entries[0] = {QStringLiteral("Shoot"),
                  [&] { isRun = true, wasOpen = shownMenu() != nullptr; },
                  KeyCombination{0, KeyCombination::command | KeyCombination::shift},
                  QStringLiteral("tip"),
                  true,
                  {}};
    entries[2].title = QStringLiteral("More");
    entries[2].entries.resize(1);
    entries[2].entries[0].title = QStringLiteral("Inner");
    entries[3].title = QStringLiteral("On & off");
    entries[3].isEnabled = false;
    fillMenu(menu, entries);
    const auto actions = menu.actions();
    ASSERT_EQ(actions.size(), 4);
    EXPECT_EQ(actions[0]->text(), QStringLiteral("Shoot\tSuper+Shift+A"));
    EXPECT_EQ(actions[0]->toolTip(), QStringLiteral("tip"));
    EXPECT_TRUE(actions[1]->isSeparator());
    EXPECT_EQ(actions[2]->menu()->actions().at(0)->text(), QStringLiteral("Inner"));
    EXPECT_EQ(actions[3]->text(), QStringLiteral("On && off"));
    EXPECT_FALSE(actions[3]->isEnabled());
    entries[0].title = QStringLiteral("Aim");
    fillMenu(menu, entries);
    EXPECT_EQ(menu.actions(), actions) << "panels know them by number";
    EXPECT_EQ(actions[0]->text(), QStringLiteral("Aim\tSuper+Shift+A"));
    menu.popup({10, 10});
    ASSERT_TRUE(waitUntil([] { return shownMenu() != nullptr; }));
    menu.setActiveAction(actions[0]);
    actions[0]->trigger();
    EXPECT_FALSE(isRun) << "it runs later";
    menu.close();
    menu.clear();
    EXPECT_TRUE(waitUntil([&] { return isRun; }));
    EXPECT_FALSE(wasOpen);
}

/// A panel with a tray at the bottom of the screen.
class Tray {
  public:
    Tray() {
        EXPECT_TRUE(configuration_.open());
        configuration_.write(
            "panel_items = S\npanel_position = bottom left horizontal\npanel_size = 100% 40\n"
            "systray_padding = 0 0 0\nsystray_icon_size = 24\nsystray_monitor = 1\n");
        configuration_.flush();
        process_.start(QStringLiteral("tint2"), {QStringLiteral("-c"), configuration_.fileName()});
    }
    ~Tray() {
        process_.terminate();
        process_.waitForFinished();
    }

  private:
    QTemporaryFile configuration_;
    QProcess process_;
};

/// Where the screen shows the icon's colour.
std::optional<QPoint> findRed() {
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    for (int y = 0; y < screen.height(); ++y)
        for (int x = 0; x < screen.width(); ++x)
            if (screen.pixel(x, y) == 0xffff0000) return QPoint(x, y);
    return std::nullopt;
}

TEST(QtStatusItem, GetsIntoATrayThatComesLaterAndOpensOnEitherButton) {
    const WindowManager manager;
    QtStatusItem item(std::make_shared<XcbConnection>());
    int built = 0;
    bool isRun = false;
    item.show(redIcon(), QStringLiteral("Kestrio"), [&] {
        ++built;
        StatusMenu menu(1);
        menu[0].title = QStringLiteral("Shoot");
        menu[0].action = [&] { isRun = true; };
        return menu;
    });
    EXPECT_FALSE(item.isAvailable());
    const Tray tray;
    ASSERT_TRUE(waitUntil([&] { return item.isAvailable(); }));
    ASSERT_TRUE(waitUntil([] { return findRed().has_value(); }));
    const QPoint place = *findRed() + QPoint(8, 8);
    for (const char* button : {"1", "3"}) {
        const int before = built;
        QProcess::execute(
            QStringLiteral("xdotool"),
            {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y()),
             QStringLiteral("click"), QString::fromLatin1(button)});
        ASSERT_TRUE(waitUntil([] { return shownMenu() != nullptr; })) << button;
        EXPECT_GT(built, before);
        EXPECT_EQ(shownMenu()->actions().at(0)->text(), QStringLiteral("Shoot"));
        isRun = false;
        QProcess::execute(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Down"),
                                                      QStringLiteral("Return")});
        EXPECT_TRUE(waitUntil([&] { return isRun; })) << button;
        EXPECT_EQ(shownMenu(), nullptr);
    }
}

}  // namespace
}  // namespace kestrio
