#include "platform/XDesk.h"
#include "platform/linux/QtDisplays.h"
#include "platform/linux/x11/X11WindowList.h"
#include "support/Contract.h"
#include "support/ScriptedDisplays.h"
#include "support/ScriptedWindowList.h"

#include <unistd.h>

namespace kestrio {
namespace {

constexpr std::uint32_t gray = 0x808080;

/// A desktop on which a program opens windows, each above the others.
struct Desk {
    virtual ~Desk() = default;
    virtual WindowList& list() = 0;
    virtual quint64 open(const char* title, QRect bounds) = 0;
};

struct ScriptedDesk : Desk {
    ScriptedWindowList service;
    WindowList& list() override { return service; }
    quint64 open(const char* title, QRect bounds) override {
        const auto id = service.windows.size() + 1;
        service.windows.insert(service.windows.begin(), {id, QStringLiteral("Program"),
                                                         QString::fromUtf8(title), bounds, true});
        return id;
    }
};

/// Without a window manager, so that windows have no frames.
struct XServerDesk : Desk {
    std::shared_ptr<XcbConnection> connection = std::make_shared<XcbConnection>();
    X11WindowList service{connection, std::make_shared<QtDisplays>(connection)};
    std::vector<std::unique_ptr<ForeignWindow>> windows;
    WindowList& list() override { return service; }
    quint64 open(const char* title, QRect bounds) override {
        windows.push_back(std::make_unique<ForeignWindow>(bounds, gray));
        windows.back()->setText("_NET_WM_NAME", "UTF8_STRING", title);
        windows.back()->setText("WM_CLASS", "STRING", QByteArray("instance\0Program\0", 17));
        windows.back()->map();
        return windows.back()->id;
    }
};

const Candidate<Desk> candidates[] = {
    candidate<Desk, ScriptedDesk>("scripted"),
    candidate<Desk, XServerDesk>("xserver"),
};

class WindowListContract : public testing::TestWithParam<Candidate<Desk>> {};

TEST_P(WindowListContract, TellsWindowsFromFrontToBack) {
    const auto desk = GetParam().make();
    const quint64 back = desk->open("back \u6f22", {10, 20, 200, 100});
    const quint64 front = desk->open("front", {50, 60, 120, 90});
    const std::vector<WindowInfo> expected{
        {front, QStringLiteral("Program"), QStringLiteral("front"), {50, 60, 120, 90}, true},
        {back, QStringLiteral("Program"), QStringLiteral("back \u6f22"), {10, 20, 200, 100}, true}};
    EXPECT_EQ(desk->list().windowsOnScreen(50), expected);
}

TEST_P(WindowListContract, LeavesOutWhatIsNotLargerThanTheMinimum) {
    const auto desk = GetParam().make();
    desk->open("narrow", {0, 0, 50, 300});
    desk->open("flat", {0, 0, 300, 50});
    const quint64 enough = desk->open("enough", {0, 0, 51, 51});
    const auto found = desk->list().windowsOnScreen(50);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].windowID, enough);
    EXPECT_EQ(desk->list().windowsOnScreen(49).size(), 3U);
}

INSTANTIATE_TEST_SUITE_P(All, WindowListContract, testing::ValuesIn(candidates), candidateName);

class ManagedWindows : public testing::Test {
  protected:
    std::vector<WindowInfo> windows() { return list_.windowsOnScreen(50); }

    std::optional<WindowInfo> info(quint64 id) {
        for (const WindowInfo& window : windows())
            if (window.windowID == id) return window;
        return std::nullopt;
    }

    bool comes(quint64 id) {
        return waitUntil([&] { return info(id).has_value(); });
    }

    WindowManager manager_;
    std::shared_ptr<XcbConnection> connection_ = std::make_shared<XcbConnection>();
    X11WindowList list_{connection_, std::make_shared<QtDisplays>(connection_)};
};

TEST_F(ManagedWindows, HaveTheBoundsOfTheirFrameWithoutShadow) {
    PictureWindow window(pattern({300, 200}), {200, 200});
    ASSERT_TRUE(waitUntil([&] { return window.frameMargins().top() > 0; }));
    EXPECT_TRUE(waitUntil([&] {
        const auto found = info(window.winId());
        return found && found->bounds == QRectF(window.frameGeometry());
    }));
    EXPECT_EQ(info(window.winId())->windowName, QStringLiteral("Picture"));
    EXPECT_EQ(info(window.winId())->ownerName, QStringLiteral("test_platform"));

    ForeignWindow shadowed({600, 100, 140, 120}, gray);
    shadowed.set("_GTK_FRAME_EXTENTS", "CARDINAL", {20, 20, 10, 30});
    shadowed.set("_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0});
    shadowed.map();
    ASSERT_TRUE(comes(shadowed.id));
    EXPECT_EQ(info(shadowed.id)->bounds.size(), QSizeF(100, 80));
}

TEST_F(ManagedWindows, AreListedAsTheyLieAndWhileTheyAreShown) {
    ForeignWindow first({100, 100, 200, 100}, gray);
    first.map();
    ForeignWindow second({150, 120, 200, 100}, gray);
    second.map();
    ASSERT_TRUE(comes(first.id) && comes(second.id));
    first.raise();
    EXPECT_TRUE(waitUntil([&] { return windows().front().windowID == first.id; }));
    EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"),
                                {QStringLiteral("windowminimize"), QString::number(first.id)}),
              0);
    EXPECT_TRUE(waitUntil([&] { return !info(first.id); }));
    EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"),
                                {QStringLiteral("set_desktop_for_window"),
                                 QString::number(second.id), QStringLiteral("1")}),
              0);
    EXPECT_TRUE(waitUntil([&] { return !info(second.id); }));
}

TEST_F(ManagedWindows, TellWhetherTheyAreAlwaysOnTop) {
    ForeignWindow floating({100, 100, 200, 100}, gray);
    floating.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_ABOVE"});
    floating.map();
    ForeignWindow plain({150, 120, 200, 100}, gray);
    plain.map();
    ASSERT_TRUE(comes(floating.id) && comes(plain.id));
    EXPECT_TRUE(info(floating.id)->isAlwaysOnTop);
    EXPECT_FALSE(info(plain.id)->isAlwaysOnTop);
}

TEST_F(ManagedWindows, OfTheDesktopItselfAreNoWindows) {
    std::vector<std::unique_ptr<ForeignWindow>> others;
    for (const char* type : {"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP",
                             "_NET_WM_WINDOW_TYPE_SPLASH", "_NET_WM_WINDOW_TYPE_MENU",
                             "_NET_WM_WINDOW_TYPE_NOTIFICATION", "_NET_WM_WINDOW_TYPE_TOOLTIP"}) {
        others.push_back(std::make_unique<ForeignWindow>(QRect(0, 0, 300, 200), gray));
        others.back()->setAtoms("_NET_WM_WINDOW_TYPE", {type});
        others.back()->map();
    }
    ForeignWindow popup({0, 0, 300, 200}, gray, false);
    popup.map();
    ForeignWindow window({100, 100, 200, 100}, gray);
    window.map();
    ASSERT_TRUE(comes(window.id));
    EXPECT_EQ(windows().size(), 1U);
}

TEST_F(ManagedWindows, AreNamedByTheirProcessWhereTheyHaveNoClass) {
    ForeignWindow unknown({100, 100, 200, 100}, gray);
    unknown.setText("WM_NAME", "STRING", "caf\xe9");
    unknown.map();
    ForeignWindow known({150, 100, 200, 100}, gray);
    known.set("_NET_WM_PID", "CARDINAL", {static_cast<std::uint32_t>(getpid())});
    known.map();
    ASSERT_TRUE(comes(unknown.id) && comes(known.id));
    EXPECT_EQ(info(unknown.id)->ownerName, QStringLiteral("Unknown"));
    EXPECT_EQ(info(unknown.id)->windowName, QStringLiteral("caf\u00e9"));
    EXPECT_EQ(info(known.id)->ownerName, QStringLiteral("test_platform"));
}

TEST(X11WindowList, TellsPointsOfTheDisplayUnderTheCentre) {
    auto displays = std::make_shared<ScriptedDisplays>();
    displays->setDisplays(
        {{QStringLiteral("left"), {0, 0, 200, 500}, {}, {0, 0, 400, 1000}, 2, true},
         {QStringLiteral("right"), {400, 0, 800, 800}, {}, {400, 0, 800, 800}}});
    const X11WindowList list(std::make_shared<XcbConnection>(), displays);
    ForeignWindow left({100, 50, 200, 160}, gray);
    left.map();
    ForeignWindow right({390, 50, 200, 160}, gray);
    right.map();
    ForeignWindow outside({1210, 10, 60, 60}, gray);
    outside.map();
    const auto found = list.windowsOnScreen(20);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].bounds, QRectF(390, 50, 200, 160));
    EXPECT_EQ(found[1].bounds, QRectF(50, 25, 100, 80));
}

}  // namespace
}  // namespace kestrio
