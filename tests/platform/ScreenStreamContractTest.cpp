#include "platform/ScreenStream.h"
#include "platform/StreamRecorder.h"
#include "platform/XDesk.h"
#include "platform/linux/x11/X11ScreenStream.h"
#include "support/Contract.h"
#include "support/ScriptedDisplays.h"
#include "support/ScriptedScreenStream.h"

#include <QRegion>
#include <thread>

namespace kestrio {
namespace {

using namespace std::chrono_literals;

const QRect canvas(20, 30, 500, 400);
const QRect region(60, 70, 200, 150);  // within it
constexpr auto quiet = 150ms;          // several turns of every stream below

const std::vector<Display> twoDisplays = {
    {QStringLiteral("left"), {0, 0, 560, 600}, {}, {0, 0, 560, 600}, 1, true},
    {QStringLiteral("right"), {560, 0, 400, 600}, {}, {560, 0, 400, 600}, 1, false}};

/// A screen on which a test paints, with two monitors that it moves.
struct Desk {
    virtual ~Desk() = default;
    virtual ScreenStream& stream() = 0;
    virtual void paint(QRect pixels, QRgb color) = 0;
    virtual void setDisplays(std::vector<Display> displays) = 0;
};

struct ScriptedDesk : Desk {
    ScriptedScreenStream service;

    ScriptedDesk() {
        service.displays = twoDisplays;
        service.desktop = QImage(960, 600, QImage::Format_RGB32);
        service.desktop.fill(Qt::black);
    }
    ScreenStream& stream() override { return service; }
    void paint(QRect pixels, QRgb color) override { service.paint(pixels, color); }
    void setDisplays(std::vector<Display> displays) override {
        service.displays = std::move(displays);
        service.end(QStringLiteral("changed"));
    }
};

struct XServerDesk : Desk {
    std::shared_ptr<ScriptedDisplays> displays = std::make_shared<ScriptedDisplays>();
    X11ScreenStream service{displays};
    PaintedWindow window{canvas};

    XServerDesk() { displays->setDisplays(twoDisplays); }
    ScreenStream& stream() override { return service; }
    void paint(QRect pixels, QRgb color) override { window.paint(pixels, color); }
    void setDisplays(std::vector<Display> all) override { displays->setDisplays(std::move(all)); }
};

const Candidate<Desk> candidates[] = {
    candidate<Desk, ScriptedDesk>("scripted"),
    candidate<Desk, XServerDesk>("xserver"),
};

ScreenStreamError::Case failureOf(Task<void> task) {
    try {
        runUntilDone(std::move(task));
    } catch (const ScreenStreamError& error) {
        EXPECT_FALSE(error.errorDescription().isEmpty());
        return error.which();
    }
    ADD_FAILURE() << "it began";
    return {};
}

QRegion changesOf(const StreamedFrame& frame) {
    QRegion all;
    for (const QRect& each : frame.dirtyRects)
        all += each;
    return all;
}

class ScreenStreamContract : public testing::TestWithParam<Candidate<Desk>> {
  protected:
    ScreenStreamContract() { stream_.setFrameHandler(recorder_.handler()); }
    ~ScreenStreamContract() override { runUntilDone(stream_.stop()); }

    void start(QRectF part = region, int rate = 60) {
        const std::size_t before = recorder_.count();
        runUntilDone(stream_.start({part, rate}));
        ASSERT_TRUE(waitUntil([&] { return recorder_.count() > before; }));
    }
    bool waitForFrames(std::size_t count) {
        return waitUntil([&] { return recorder_.count() >= count; });
    }

    StreamRecorder recorder_;
    std::shared_ptr<Desk> desk_ = GetParam().make();
    ScreenStream& stream_ = desk_->stream();
};

TEST_P(ScreenStreamContract, BeginsWithThePictureOfTheRegion) {
    desk_->paint(region, 0xff102030);
    desk_->paint({61, 70, 1, 1}, 0xffabcdef);
    desk_->paint({59, 70, 1, 150}, 0xffffffff);
    start();
    const StreamedFrame first = recorder_.last();
    EXPECT_EQ(first.image.format(), QImage::Format_RGB32);
    QImage expected(region.size(), QImage::Format_RGB32);
    expected.fill(0xff102030);
    expected.setPixel(1, 0, 0xffabcdef);
    EXPECT_EQ(first.image, expected);
    EXPECT_EQ(first.contentRect, QRectF(region));
    EXPECT_EQ(first.scaleFactor, 1);
    EXPECT_TRUE(first.dirtyRects.empty());
    EXPECT_GT(first.presentationTime, 0);
}

TEST_P(ScreenStreamContract, ShowsWhatChangesInTheRegionAndNothingElse) {
    start();
    const StreamedFrame first = recorder_.last();
    desk_->paint({30, 40, 20, 20}, 0xffff0000);  // beside it
    desk_->paint({region.right() + 1, 90, 30, 30}, 0xffff0000);
    waitFor(quiet);
    EXPECT_EQ(recorder_.count(), 1U);
    desk_->paint({100, 90, 31, 17}, 0xff00ff00);
    ASSERT_TRUE(waitForFrames(2));
    const StreamedFrame second = recorder_.last();
    EXPECT_EQ(changesOf(second), QRegion(40, 20, 31, 17));
    EXPECT_EQ(second.image.pixel(40, 20), 0xff00ff00);
    EXPECT_EQ(second.image.pixel(71, 37), first.image.pixel(71, 37));
    EXPECT_GT(second.presentationTime, first.presentationTime);
    // What reaches out of the region counts as far as it lies within.
    desk_->paint({50, 60, 30, 30}, 0xff0000ff);
    ASSERT_TRUE(waitForFrames(3));
    EXPECT_EQ(changesOf(recorder_.last()), QRegion(0, 0, 20, 20));
    // Pictures that were handed over stay as they are.
    EXPECT_EQ(second.image.pixel(0, 0), first.image.pixel(0, 0));
    waitFor(quiet);
    EXPECT_EQ(recorder_.count(), 3U);
}

TEST_P(ScreenStreamContract, StaysWithinOneDisplay) {
    using Case = ScreenStreamError::Case;
    for (const QRectF& wrong : {QRectF(500, 100, 100, 100), QRectF(-10, 10, 50, 50),
                                QRectF(3000, 3000, 50, 50), QRectF(600, 590, 50, 11), QRectF()})
        EXPECT_EQ(failureOf(stream_.start({wrong})), Case::severalDisplays);
    start({540, 100, 20, 20});
    start({560, 100, 20, 20});
    EXPECT_EQ(recorder_.last().contentRect, QRectF(560, 100, 20, 20));
    desk_->setDisplays({});
    EXPECT_EQ(failureOf(stream_.start({region})), Case::noDisplay);
}

TEST_P(ScreenStreamContract, GivesNothingAfterAStop) {
    runUntilDone(stream_.stop());
    start();
    runUntilDone(stream_.stop());
    runUntilDone(stream_.stop());
    desk_->paint(region, 0xff445566);
    waitFor(quiet);
    EXPECT_EQ(recorder_.count(), 1U);
}

TEST_P(ScreenStreamContract, EndsAfterAStopInTheMiddleOfItsStart) {
    auto starting = stream_.start({region, 60});
    auto stopping = stream_.stop();
    runUntilDone(std::move(starting));
    runUntilDone(std::move(stopping));
    const std::size_t count = recorder_.count();
    desk_->paint(region, 0xff445566);
    waitFor(quiet);
    EXPECT_EQ(recorder_.count(), count);
    start();
    EXPECT_EQ(stream_.generation(), 2);
}

TEST_P(ScreenStreamContract, StartsAgainWithoutFramesOfBefore) {
    EXPECT_EQ(stream_.generation(), 0);
    start();
    EXPECT_EQ(stream_.generation(), 1);
    const QRect other(300, 100, 80, 90);
    auto dropped = stream_.start({QRectF(region), 60});
    auto starting = stream_.start({QRectF(other), 60});
    runUntilDone(std::move(starting));
    runUntilDone(std::move(dropped));
    EXPECT_EQ(stream_.generation(), 3);
    ASSERT_TRUE(waitUntil([&] { return recorder_.last().contentRect == QRectF(other); }));
    const std::size_t count = recorder_.count();
    desk_->paint(region, 0xff556677);
    desk_->paint(other, 0xff665544);
    ASSERT_TRUE(waitForFrames(count + 1));
    waitFor(quiet);
    EXPECT_EQ(recorder_.count(), count + 1);
    EXPECT_EQ(recorder_.last().image.pixel(0, 0), 0xff665544);
}

TEST_P(ScreenStreamContract, ChangesItsHandlerWhileItRuns) {
    start();
    stream_.setFrameHandler({});
    desk_->paint(region, 0xff778899);
    waitFor(quiet);
    EXPECT_EQ(recorder_.count(), 1U);
    StreamRecorder other;
    stream_.setFrameHandler(other.handler());
    desk_->paint({100, 100, 5, 5}, 0xff112233);
    EXPECT_TRUE(waitUntil([&] { return other.count() == 1; }));
    EXPECT_EQ(recorder_.count(), 1U);
    stream_.setFrameHandler({});
}

TEST_P(ScreenStreamContract, SaysOnceWhyItEnded) {
    QStringList reasons;
    stream_.setErrorHandler([&](const QString& reason) {
        EXPECT_EQ(QThread::currentThread(), qApp->thread());
        reasons << reason;
    });
    start();
    auto moved = twoDisplays;
    moved[0].pixels.translate(0, 40);
    desk_->setDisplays(moved);
    EXPECT_TRUE(waitUntil([&] { return !reasons.isEmpty(); }));
    desk_->paint(region, 0xff998877);
    desk_->setDisplays(twoDisplays);
    waitFor(quiet);
    EXPECT_EQ(reasons.size(), 1);
    EXPECT_EQ(recorder_.count(), 1U);
    start();
    runUntilDone(stream_.stop());
    desk_->setDisplays({twoDisplays[1]});
    waitFor(quiet);
    EXPECT_EQ(reasons.size(), 1);
}

INSTANTIATE_TEST_SUITE_P(All, ScreenStreamContract, testing::ValuesIn(candidates), candidateName);

}  // namespace
}  // namespace kestrio
