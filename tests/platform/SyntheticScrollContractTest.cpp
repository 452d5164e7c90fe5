#include "platform/linux/QtDisplays.h"
#include "platform/linux/x11/X11SyntheticScroll.h"
#include "support/Contract.h"
#include "support/ScriptedDisplays.h"
#include "support/ScriptedSyntheticScroll.h"
#include "support/Waiting.h"

#include <QCursor>
#include <QRasterWindow>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

const QRect target(100, 80, 300, 200);

/// A window at `target` that counts by how many steps its content was moved up.
struct Desk {
    virtual ~Desk() = default;
    virtual SyntheticScroll& service() = 0;
    virtual int stepsUp() = 0;
};

struct ScriptedDesk : Desk {
    ScriptedSyntheticScroll scroll;
    int steps = 0;

    ScriptedDesk() {
        scroll.onTurn = [this](ScriptedSyntheticScroll::Turn turn) {
            if (target.contains(turn.at.toPoint())) steps += turn.clicks;
        };
    }
    SyntheticScroll& service() override { return scroll; }
    int stepsUp() override { return steps; }
};

class WheelWindow : public QRasterWindow {
  public:
    explicit WheelWindow(QRect place) {
        setFlags(Qt::Window | Qt::BypassWindowManagerHint);
        setGeometry(place);
        show();
        EXPECT_TRUE(waitUntil([this] { return isExposed(); }));
    }

    int stepsUp = 0;
    std::vector<QPoint> places;  ///< of the wheel's events, in points of the desktop

  protected:
    void wheelEvent(QWheelEvent* event) override {
        stepsUp -= event->angleDelta().y() / QWheelEvent::DefaultDeltasPerStep;
        places.push_back(event->globalPosition().toPoint());
    }
};

struct XServerDesk : Desk {
    X11SyntheticScroll scroll{std::make_shared<XcbConnection>(),
                              std::make_shared<QtDisplays>(std::make_shared<XcbConnection>())};
    WheelWindow window{target};

    XServerDesk() { QCursor::setPos(5, 5); }
    SyntheticScroll& service() override { return scroll; }
    int stepsUp() override { return window.stepsUp; }
};

const Candidate<Desk> candidates[] = {
    candidate<Desk, ScriptedDesk>("scripted"),
    candidate<Desk, XServerDesk>("xserver"),
};

class SyntheticScrollContract : public testing::TestWithParam<Candidate<Desk>> {
  protected:
    std::shared_ptr<Desk> desk_ = GetParam().make();
    SyntheticScroll& scroll_ = desk_->service();
};

TEST_P(SyntheticScrollContract, TurnsTheWheelOverThePointInBothDirections) {
    ASSERT_TRUE(scroll_.isPermitted());
    EXPECT_TRUE(scroll_.requestPermission());
    scroll_.scroll(target.center(), 3);
    EXPECT_TRUE(waitUntil([&] { return desk_->stepsUp() == 3; }));
    scroll_.scroll(target.center(), -5);
    EXPECT_TRUE(waitUntil([&] { return desk_->stepsUp() == -2; }));
    scroll_.scroll(target.topLeft() - QPointF(20, 20), 4);  // beside the window
    scroll_.scroll(target.topLeft(), 1);
    EXPECT_TRUE(waitUntil([&] { return desk_->stepsUp() == -1; }));
}

TEST_P(SyntheticScrollContract, LeavesThePointerWhereItScrolledAndPutsItBack) {
    scroll_.movePointer({50, 40});
    EXPECT_EQ(scroll_.pointer(), QPointF(50, 40));
    scroll_.scroll(target.center(), 0);
    EXPECT_EQ(scroll_.pointer(), QPointF(target.center()));
    EXPECT_EQ(desk_->stepsUp(), 0);
    scroll_.movePointer({50, 40});
    EXPECT_EQ(scroll_.pointer(), QPointF(50, 40));
}

INSTANTIATE_TEST_SUITE_P(All, SyntheticScrollContract, testing::ValuesIn(candidates),
                         candidateName);

TEST(X11SyntheticScroll, CountsInPointsOfTheDisplay) {
    auto displays = std::make_shared<ScriptedDisplays>();
    displays->setDisplays(
        {{QStringLiteral("left"), {0, 0, 200, 200}, {}, {0, 0, 400, 400}, 2, true},
         {QStringLiteral("right"), {400, 0, 300, 400}, {}, {400, 0, 300, 400}}});
    X11SyntheticScroll scroll(std::make_shared<XcbConnection>(), displays);
    scroll.movePointer({60.5, 20});
    EXPECT_EQ(scroll.pointer(), QPointF(60.5, 20));
    EXPECT_EQ(QCursor::pos(), QPoint(121, 40));
    scroll.movePointer({450, 30});
    EXPECT_EQ(scroll.pointer(), QPointF(450, 30));  // and the server has done it
    EXPECT_EQ(QCursor::pos(), QPoint(450, 30));
    const WheelWindow window({100, 100, 50, 50});
    scroll.scroll({65, 55.5}, 2);
    EXPECT_TRUE(waitUntil([&] { return window.stepsUp == 2; }));
    EXPECT_EQ(window.places, std::vector<QPoint>(2, {130, 111}));
    // In the gap between both displays.
    scroll.scroll({300, 10}, 2);
    EXPECT_EQ(QCursor::pos(), QPoint(130, 111));
}

TEST(X11SyntheticScroll, DoesNothingWithoutAServer) {
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":9999");
    const auto displays = std::make_shared<ScriptedDisplays>();
    displays->pointer = {7, 8};
    X11SyntheticScroll scroll(std::make_shared<XcbConnection>(), displays);
    EXPECT_FALSE(scroll.isPermitted());
    EXPECT_FALSE(scroll.requestPermission());
    scroll.scroll({1, 1}, 1);
    scroll.movePointer({1, 1});
    EXPECT_EQ(scroll.pointer(), QPointF(7, 8));
    qputenv("DISPLAY", display);
}

TEST(ScriptedSyntheticScroll, AsksItsUser) {
    ScriptedSyntheticScroll scroll;
    scroll.isGranted = false;
    EXPECT_FALSE(scroll.requestPermission());
    scroll.scroll({3, 3}, 1);
    EXPECT_TRUE(scroll.turns.empty());
    scroll.userGrants = true;
    EXPECT_TRUE(scroll.requestPermission());
    EXPECT_EQ(scroll.requestCount, 2);
}

}  // namespace
}  // namespace kestrio
