#include "core/Cancelled.h"
#include "platform/XDesk.h"
#include "platform/linux/x11/X11ScreenGrabber.h"
#include "support/Contract.h"
#include "support/ScriptedScreenGrabber.h"

#include <xcb/composite.h>

namespace kestrio {
namespace {

constexpr std::uint32_t orange = 0xff8000;
constexpr quint64 noWindow = 0x1fffffff;

/// A screen whose top left corner shows a picture, and a window with another one.
struct Desk {
    virtual ~Desk() = default;
    virtual ScreenGrabber& grabber() = 0;
    virtual quint64 windowID() const = 0;
};

const QImage& shownPicture() {
    static const QImage picture = pattern({1200, 700});  // several bands
    return picture;
}

struct ScriptedDesk : Desk {
    ScriptedScreenGrabber service;

    ScriptedDesk() {
        service.desktop = shownPicture();
        service.windows[1] = shownPicture();
    }
    ScreenGrabber& grabber() override { return service; }
    quint64 windowID() const override { return 1; }
};

struct XServerDesk : Desk {
    X11ScreenGrabber service;
    PictureWindow window{shownPicture(), {0, 0}, Qt::Window | Qt::BypassWindowManagerHint};

    ScreenGrabber& grabber() override { return service; }
    quint64 windowID() const override { return window.winId(); }
};

const Candidate<Desk> candidates[] = {
    candidate<Desk, ScriptedDesk>("scripted"),
    candidate<Desk, XServerDesk>("xserver"),
};

ScreenGrabError::Case failureOf(Task<QImage> task) {
    try {
        runUntilDone(std::move(task));
    } catch (const ScreenGrabError& error) {
        return error.which();
    }
    ADD_FAILURE() << "it was read";
    return {};
}

class ScreenGrabberContract : public testing::TestWithParam<Candidate<Desk>> {
  protected:
    std::shared_ptr<Desk> desk_ = GetParam().make();
};

TEST_P(ScreenGrabberContract, RectanglesAreExactAndEndAtTheDesktop) {
    const QRect whole = shownPicture().rect();
    for (const QRect part :
         {whole, QRect(3, 5, 7, 11), QRect(1, 699, 1, 1), QRect(-20, -9, 100, 50)}) {
        const QImage image = runUntilDone(desk_->grabber().grabRectangle(part));
        EXPECT_EQ(image.format(), QImage::Format_RGB32);
        EXPECT_EQ(image, shownPicture().copy(part & whole));
        EXPECT_EQ(image.constBits()[3], 0xff);
    }
    for (const QRect part : {QRect(-50, 0, 50, 50), QRect(90000, 0, 10, 10), QRect()})
        EXPECT_EQ(failureOf(desk_->grabber().grabRectangle(part)),
                  ScreenGrabError::Case::unreadable);
}

TEST_P(ScreenGrabberContract, WindowsAreExactOrGone) {
    const QImage image = runUntilDone(desk_->grabber().grabWindow(desk_->windowID()));
    EXPECT_EQ(image.format(), QImage::Format_RGB32);
    EXPECT_EQ(image, shownPicture());
    for (const quint64 id : {noWindow, quint64{1} << 40})
        EXPECT_EQ(failureOf(desk_->grabber().grabWindow(id)), ScreenGrabError::Case::windowGone);
}

TEST_P(ScreenGrabberContract, AStopEndsAGrab) {
    std::stop_source stop;
    auto rectangle = desk_->grabber().grabRectangle({0, 0, 10, 10}, stop.get_token());
    auto window = desk_->grabber().grabWindow(desk_->windowID(), stop.get_token());
    stop.request_stop();
    // What was read before the stop may still come, where it was read at once.
    const auto isStopped = [](Task<QImage> task) {
        try {
            return runUntilDone(std::move(task)).isNull();
        } catch (const Cancelled&) {
            return true;
        }
    };
    if (QByteArray(GetParam().name) == "scripted") {
        runUntilDone(std::move(rectangle));
        runUntilDone(std::move(window));
        return;
    }
    EXPECT_TRUE(isStopped(std::move(rectangle)));
    EXPECT_TRUE(isStopped(std::move(window)));
}

INSTANTIATE_TEST_SUITE_P(All, ScreenGrabberContract, testing::ValuesIn(candidates), candidateName);

TEST(ScriptedScreenGrabber, HoldsAnswersUntilTheTestGivesThem) {
    ScriptedScreenGrabber grabber;
    grabber.desktop = shownPicture();
    grabber.isHeld = true;
    auto task = grabber.grabRectangle({0, 0, 4, 4}, {});
    QCoreApplication::processEvents();
    EXPECT_EQ(grabber.pendingCount(), 1);
    grabber.failure = ScreenGrabError::Case::unreadable;
    grabber.answerAll();
    EXPECT_EQ(failureOf(std::move(task)), ScreenGrabError::Case::unreadable);
}

class X11Windows : public testing::Test {
  protected:
    QImage grab(quint64 window) { return runUntilDone(grabber_.grabWindow(window)); }

    X11ScreenGrabber service_;
    ScreenGrabber& grabber_ = service_;
};

TEST_F(X11Windows, AreReadUnderOthersAndBeyondTheScreen) {
    const QImage picture = pattern({300, 200});
    const PictureWindow covered(picture, {400, 300}, Qt::Window | Qt::BypassWindowManagerHint);
    ForeignWindow cover({450, 320, 400, 400}, orange, false);
    cover.map();
    EXPECT_EQ(grab(covered.winId()), picture);
    const PictureWindow outside(picture, {-100, -50}, Qt::Window | Qt::BypassWindowManagerHint);
    EXPECT_EQ(grab(outside.winId()), picture);
    // Afterwards the screen is as it was.
    EXPECT_EQ(runUntilDone(grabber_.grabRectangle({460, 330, 1, 1})).pixel(0, 0),
              0xff000000 | orange);
}

TEST_F(X11Windows, HaveTheirTitleBarAndNoShadow) {
    const WindowManager manager;
    const QImage picture = pattern({320, 200});
    PictureWindow window(picture, {200, 200});
    ASSERT_TRUE(waitUntil([&] { return !window.frameMargins().isNull(); }));
    const QMargins frame = window.frameMargins();
    ASSERT_GT(frame.top(), 5);
    const QImage image = grab(window.winId());
    EXPECT_EQ(image.size(), picture.size().grownBy(frame));
    EXPECT_EQ(image.copy(QRect(QPoint(frame.left(), frame.top()), picture.size())), picture);

    ForeignWindow shadowed({600, 100, 140, 120}, orange);
    shadowed.set("_GTK_FRAME_EXTENTS", "CARDINAL", {20, 20, 10, 30});
    shadowed.set("_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0});  // no decorations
    shadowed.map();
    EXPECT_EQ(grab(shadowed.id).size(), QSize(100, 80));
}

TEST_F(X11Windows, AreClearOutsideOfTheirShape) {
    for (const bool isCovered : {false, true}) {
        ForeignWindow window({100, 100, 60, 40}, orange, false);
        window.setShape({{10, 0, 40, 40}, {0, 10, 60, 20}});
        window.map();
        std::optional<ForeignWindow> cover;
        if (isCovered) cover.emplace(QRect(90, 90, 30, 30), 0x0000ff, false).map();
        const QImage image = grab(window.id);
        ASSERT_EQ(image.format(), QImage::Format_ARGB32_Premultiplied);
        ASSERT_EQ(image.size(), QSize(60, 40));
        const QRegion shape = QRegion(10, 0, 40, 40) + QRegion(0, 10, 60, 20);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                ASSERT_EQ(image.pixel(x, y), shape.contains(QPoint(x, y)) ? 0xffff8000 : 0)
                    << x << ' ' << y << ' ' << isCovered;
    }
}

TEST_F(X11Windows, ThatAreHiddenAreGone) {
    ForeignWindow window({100, 100, 60, 40}, orange, false);
    window.sync();
    EXPECT_EQ(failureOf(grabber_.grabWindow(window.id)), ScreenGrabError::Case::windowGone);
}

TEST_F(X11Windows, MayGoWhileTheyAreRead) {
    auto window = std::make_optional<ForeignWindow>(QRect(100, 100, 60, 40), orange, false);
    window->map();
    ForeignWindow cover({90, 90, 200, 200}, 0, false);
    cover.map();
    auto task = grabber_.grabWindow(window->id);
    QTimer::singleShot(std::chrono::milliseconds(60), [&] { window.reset(); });
    EXPECT_EQ(failureOf(std::move(task)), ScreenGrabError::Case::windowGone);
}

TEST_F(X11Windows, AreReadWhileACompositingManagerRuns) {
    // Redirected by somebody, and the selection that reports it.
    ForeignWindow window({100, 100, 60, 40}, orange, false);
    window.map();
    ForeignWindow cover({90, 90, 200, 200}, 0, false);
    cover.map();
    std::free(xcb_composite_query_version_reply(
        cover.handle, xcb_composite_query_version(cover.handle, 0, 4), nullptr));
    xcb_composite_redirect_subwindows(cover.handle, cover.connection.screen().root,
                                      XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    xcb_set_selection_owner(cover.handle, cover.id, cover.intern("_NET_WM_CM_S0"),
                            XCB_CURRENT_TIME);
    cover.sync();
    QImage expected(60, 40, QImage::Format_RGB32);
    expected.fill(0xff000000 | orange);
    EXPECT_EQ(grab(window.id), expected);
}

}  // namespace
}  // namespace kestrio
