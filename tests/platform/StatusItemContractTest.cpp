#include "platform/XDesk.h"
#include "platform/linux/QtStatusItem.h"
#include "platform/linux/TrayMenu.h"
#include "support/Contract.h"
#include "support/ScriptedStatusItem.h"

#include <QApplication>
#include <QMenu>
#include <QTemporaryFile>

namespace kestrio {
namespace {

QMenu* shownMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

QIcon iconOf(const QColor& color) {
    QPixmap picture(22, 22);
    picture.fill(color);
    return picture;
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
std::optional<QPoint> find(QRgb color) {
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    for (int y = 0; y < screen.height(); ++y)
        for (int x = 0; x < screen.width(); ++x)
            if (screen.pixel(x, y) == color) return QPoint(x, y);
    return std::nullopt;
}

/// A tray beside the user who looks at it.
struct Desk {
    virtual ~Desk() = default;
    virtual StatusItem& item() = 0;
    virtual void open() = 0;
    virtual QStringList shownTitles() const = 0;
    virtual void choose(int index) = 0;
    virtual bool shows(const QColor& icon) const = 0;
};

struct ScriptedDesk : Desk {
    ScriptedStatusItem scripted;
    StatusItem& item() override { return scripted; }
    void open() override { scripted.openMenu(); }
    QStringList shownTitles() const override {
        QStringList titles;
        for (const StatusMenuEntry& entry : scripted.menu())
            titles << entry.title;
        return titles;
    }
    void choose(int index) override { scripted.choose(static_cast<std::size_t>(index)); }
    bool shows(const QColor& icon) const override {
        return scripted.icon().pixmap(4).toImage().pixelColor(1, 1) == icon;
    }
};

struct QtDesk : Desk {
    WindowManager manager;
    Tray tray;
    QtStatusItem real{std::make_shared<XcbConnection>()};
    StatusItem& item() override { return real; }
    void open() override {
        ASSERT_TRUE(waitUntil([] { return find(qRgb(255, 0, 0)).has_value(); }));
        click(*find(qRgb(255, 0, 0)) + QPoint(8, 8), "3");
        ASSERT_TRUE(waitUntil([] { return shownMenu() != nullptr; }));
    }
    QStringList shownTitles() const override {
        QStringList titles;
        for (const QAction* action : shownMenu()->actions())
            titles << action->text();
        return titles;
    }
    void choose(int index) override {
        shownMenu()->setActiveAction(shownMenu()->actions().at(index));
        QProcess::execute(QStringLiteral("xdotool"),
                          {QStringLiteral("key"), QStringLiteral("Return")});
    }
    bool shows(const QColor& icon) const override { return find(icon.rgb()).has_value(); }

    static void click(QPoint place, const char* button) {
        QProcess::execute(
            QStringLiteral("xdotool"),
            {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y()),
             QStringLiteral("click"), QString::fromLatin1(button)});
    }
};

const Candidate<Desk> candidates[] = {
    candidate<Desk, ScriptedDesk>("scripted"),
    candidate<Desk, QtDesk>("desktop"),
};

class StatusItemContract : public testing::TestWithParam<Candidate<Desk>> {
  protected:
    StatusMenu entries() {
        StatusMenu menu;
        for (const QString& title : titles_) {
            menu.emplace_back();
            menu.back().title = title;
            menu.back().action = [this, title] { chosen_ << title; };
        }
        return menu;
    }

    std::shared_ptr<Desk> desk_ = GetParam().make();
    QStringList titles_{QStringLiteral("Shoot"), QStringLiteral("Quit")};
    QStringList chosen_;
    std::shared_ptr<StatusItemModel> model_ =
        std::make_shared<StatusItemModel>([this] { return entries(); });
};

TEST_P(StatusItemContract, ShowWhatTheModelHoldsNowAndFollowIt) {
    model_->set_icon(iconOf(Qt::red));
    desk_->item().show(model_);
    titles_ << QStringLiteral("later");  // without a word: menus ask when they open
    desk_->open();
    EXPECT_EQ(desk_->shownTitles(), titles_);

    // While it is open, an entry changes, one goes and others come.
    titles_ = {QStringLiteral("first"), {}, QStringLiteral("Shoot now"), QStringLiteral("Quit")};
    Q_EMIT model_->menuChanged();
    EXPECT_EQ(desk_->shownTitles(), titles_);
    titles_ = {QStringLiteral("Quit")};
    Q_EMIT model_->menuChanged();
    EXPECT_EQ(desk_->shownTitles(), titles_);
    desk_->choose(0);
    EXPECT_TRUE(waitUntil([this] { return !chosen_.isEmpty(); }));
    EXPECT_EQ(chosen_, titles_);

    model_->set_icon(iconOf(Qt::blue));
    EXPECT_TRUE(waitUntil([this] { return desk_->shows(Qt::blue); }));
}

INSTANTIATE_TEST_SUITE_P(All, StatusItemContract, testing::ValuesIn(candidates), candidateName);

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
    entries[3].icon = QStringLiteral("pin");
    fillMenu(menu, entries);
    const auto actions = menu.actions();
    ASSERT_EQ(actions.size(), 4);
    EXPECT_EQ(actions[0]->text(), QStringLiteral("Shoot\tSuper+Shift+A"));
    EXPECT_EQ(actions[0]->toolTip(), QStringLiteral("tip"));
    EXPECT_TRUE(actions[1]->isSeparator());
    EXPECT_EQ(actions[2]->menu()->actions().at(0)->text(), QStringLiteral("Inner"));
    EXPECT_EQ(actions[3]->text(), QStringLiteral("On && off"));
    EXPECT_FALSE(actions[3]->isEnabled());
    EXPECT_FALSE(actions[3]->icon().isNull());
    EXPECT_TRUE(actions[0]->icon().isNull());
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

TEST(QtStatusItem, GetsIntoATrayThatComesLaterAndOpensOnEitherButton) {
    const WindowManager manager;
    QtStatusItem item(std::make_shared<XcbConnection>());
    int built = 0;
    bool isRun = false;
    const auto model = std::make_shared<StatusItemModel>([&] {
        ++built;
        StatusMenu menu(1);
        menu[0].title = QStringLiteral("Shoot");
        menu[0].action = [&] { isRun = true; };
        return menu;
    });
    model->set_icon(iconOf(Qt::red));
    item.show(model);
    EXPECT_FALSE(item.isAvailable());
    const Tray tray;
    ASSERT_TRUE(waitUntil([&] { return item.isAvailable(); }));
    ASSERT_TRUE(waitUntil([] { return find(qRgb(255, 0, 0)).has_value(); }));
    const QPoint place = *find(qRgb(255, 0, 0)) + QPoint(8, 8);
    for (const char* button : {"1", "3"}) {
        const int before = built;
        QtDesk::click(place, button);
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
