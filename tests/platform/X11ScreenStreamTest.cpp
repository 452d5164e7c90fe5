#include "platform/StreamRecorder.h"
#include "platform/XDesk.h"
#include "platform/linux/x11/X11ScreenStream.h"
#include "support/ScriptedDisplays.h"

#include <QCursor>
#include <QElapsedTimer>
#include <atomic>

namespace kestrio {
namespace {

using namespace std::chrono_literals;

const QRect canvas(20, 30, 500, 400);
const QRect region(60, 70, 200, 150);  // within it

class X11ScreenStreams : public testing::Test {
  protected:
    X11ScreenStreams() {
        displays_->setDisplays(
            {{QStringLiteral("one"), {0, 0, 600, 600}, {}, {0, 0, 600, 600}, 1, true}});
        stream_.setFrameHandler(recorder_.handler());
    }
    ~X11ScreenStreams() override {
        recorder_.duration = 0ms;
        runUntilDone(stream_.stop());
    }

    void start(int rate) {
        runUntilDone(stream_.start({QRectF(region), rate}));
        ASSERT_TRUE(waitUntil([&] { return recorder_.count() == 1; }));
    }
    /// Paints as fast as it can; the last colour is that of every pixel of the region.
    QRgb paintFor(std::chrono::milliseconds duration) {
        const QDeadlineTimer end(duration);
        QRgb color = 0xff000000;
        while (!end.hasExpired())
            window_.paint(region, ++color);
        return color;
    }

    PaintedWindow window_{canvas};
    std::shared_ptr<ScriptedDisplays> displays_ = std::make_shared<ScriptedDisplays>();
    StreamRecorder recorder_;
    X11ScreenStream stream_{displays_};
};

TEST_F(X11ScreenStreams, KeepTheirRateAndEndWithTheNewestPicture) {
    start(20);
    const QRgb last = paintFor(500ms);
    EXPECT_TRUE(waitUntil([&] { return recorder_.last().image.pixel(3, 3) == last; }));
    const auto frames = recorder_.frames();
    EXPECT_GT(frames.size(), 4U);  // a busy machine may fall behind
    EXPECT_LT(frames.size(), 14U);
    for (std::size_t i = 1; i < frames.size(); ++i)
        EXPECT_GE(frames[i].presentationTime - frames[i - 1].presentationTime, 0.0499);
}

TEST_F(X11ScreenStreams, WaitForSlowHandlersAndThenShowTheNewestPicture) {
    start(100);
    recorder_.duration = 120ms;
    window_.paint({70, 80, 10, 10}, 0xff010101);
    ASSERT_TRUE(waitUntil([&] { return recorder_.isCalled(); }));
    window_.paint({90, 80, 10, 10}, 0xff020202);
    const QRgb last = paintFor(60ms);
    ASSERT_TRUE(waitUntil([&] { return recorder_.count() == 3; }));
    waitFor(200ms);
    EXPECT_EQ(recorder_.count(), 3U);
    EXPECT_EQ(recorder_.mostAtOnce(), 1);
    EXPECT_EQ(recorder_.last().image.pixel(0, 0), last);
    EXPECT_EQ(recorder_.last().dirtyRects, std::vector<QRect>({QRect(QPoint(), region.size())}));
}

TEST_F(X11ScreenStreams, TakeAHandlerAwayOnlyBetweenItsCalls) {
    start(100);
    recorder_.duration = 80ms;
    window_.paint(region, 0xff030303);
    ASSERT_TRUE(waitUntil([&] { return recorder_.isCalled(); }));
    stream_.setFrameHandler({});
    EXPECT_FALSE(recorder_.isCalled());
    EXPECT_EQ(recorder_.count(), 2U);
    std::atomic<int> calls = 0;
    stream_.setFrameHandler([&](const StreamedFrame&) {
        ++calls;
        stream_.setFrameHandler({});
    });
    window_.paint(region, 0xff040404);
    EXPECT_TRUE(waitUntil([&] { return calls == 1; }));
    window_.paint(region, 0xff050505);
    waitFor(100ms);
    EXPECT_EQ(calls, 1);
}

TEST_F(X11ScreenStreams, CountInPixelsOfTheirDisplayAndLeaveThePointerOut) {
    displays_->setDisplays(
        {{QStringLiteral("one"), {0, 0, 300, 300}, {}, {0, 0, 600, 600}, 2, true}});
    const QRectF points(30, 35.5, 100, 74.5);
    QCursor::setPos(100, 100);
    runUntilDone(stream_.start({points, 60}));
    ASSERT_TRUE(waitUntil([&] { return recorder_.count() == 1; }));
    window_.paint({60, 71, 2, 1}, 0xff060606);
    ASSERT_TRUE(waitUntil([&] { return recorder_.count() == 2; }));
    const StreamedFrame frame = recorder_.last();
    EXPECT_EQ(frame.image.size(), QSize(200, 149));
    EXPECT_EQ(frame.contentRect, points);
    EXPECT_EQ(frame.scaleFactor, 2);
    EXPECT_EQ(frame.dirtyRects, std::vector<QRect>({QRect(0, 0, 2, 1)}));
    for (int step = 0; step < 20; ++step) {
        QCursor::setPos(100 + 3 * step, 110);
        waitFor(5ms);
    }
    waitFor(60ms);
    EXPECT_EQ(recorder_.count(), 2U);
    window_.paint({62, 71, 2, 1}, 0xff060606);
    ASSERT_TRUE(waitUntil([&] { return recorder_.count() == 3; }));
    QImage expected(200, 149, QImage::Format_RGB32);
    expected.fill(0xff000000);
    for (int x = 0; x < 4; ++x)
        expected.setPixel(x, 0, 0xff060606);
    EXPECT_EQ(recorder_.last().image, expected);
}

TEST_F(X11ScreenStreams, StopInLimitedTimeWhateverTheirHandlerDoes) {
    start(100);
    recorder_.duration = 3600ms;
    window_.paint(region, 0xff070707);
    ASSERT_TRUE(waitUntil([&] { return recorder_.isCalled(); }));
    QElapsedTimer time;
    time.start();
    runUntilDone(stream_.stop());
    EXPECT_LT(time.elapsed(), 3500);
    window_.paint(region, 0xff080808);
    ASSERT_TRUE(waitUntil([&] { return !recorder_.isCalled(); }));
    EXPECT_EQ(recorder_.count(), 2U);
}

TEST_F(X11ScreenStreams, MayGoWhileTheyRunAndWhileTheyStart) {
    for (int round = 0; round < 20; ++round) {
        X11ScreenStream stream(displays_);
        stream.setFrameHandler(recorder_.handler());
        std::optional<Task<void>> starting(stream.start({QRectF(region), 100}));
        if (round % 2 == 0) runUntilDone(*std::exchange(starting, std::nullopt));
        window_.paint(region, 0xff000000 + static_cast<QRgb>(round));
    }
    const std::size_t count = recorder_.count();
    window_.paint(region, 0xffffffff);
    waitFor(50ms);
    EXPECT_EQ(recorder_.count(), count);
}

/// An X server of a test's own, which it ends.
class OwnServer {
  public:
    OwnServer() {
        process_.start(QStringLiteral("Xvfb"), {QStringLiteral("-displayfd"), QStringLiteral("1"),
                                                QStringLiteral("-screen"), QStringLiteral("0"),
                                                QStringLiteral("640x480x24")});
        QByteArray number;
        EXPECT_TRUE(waitUntil([&] {
            number += process_.readAllStandardOutput();
            return number.endsWith('\n');
        }));
        qputenv("DISPLAY", ':' + number.trimmed());
    }
    ~OwnServer() {
        qputenv("DISPLAY", before_);
        end();
    }
    void end() {
        process_.kill();
        process_.waitForFinished();
    }

  private:
    QByteArray before_ = qgetenv("DISPLAY");
    QProcess process_;
};

TEST(X11ScreenStreamsWithoutServer, EndOrDoNotBegin) {
    auto displays = std::make_shared<ScriptedDisplays>();
    displays->setDisplays(
        {{QStringLiteral("one"), {0, 0, 640, 480}, {}, {0, 0, 640, 480}, 1, true}});
    X11ScreenStream stream(displays);
    StreamRecorder recorder;
    stream.setFrameHandler(recorder.handler());
    QStringList reasons;
    stream.setErrorHandler([&](const QString& reason) { reasons << reason; });
    OwnServer server;
    runUntilDone(stream.start({{10, 10, 50, 50}}));
    EXPECT_TRUE(waitUntil([&] { return recorder.count() == 1; }));
    server.end();
    EXPECT_TRUE(waitUntil([&] { return !reasons.isEmpty(); }));
    EXPECT_EQ(reasons, QStringList(QStringLiteral("The connection to the screen was lost")));
    try {
        runUntilDone(stream.start({{10, 10, 50, 50}}));
        ADD_FAILURE() << "it began";
    } catch (const ScreenStreamError& error) {
        EXPECT_EQ(error.which(), ScreenStreamError::Case::stopped);
    }
    waitFor(20ms);
    EXPECT_EQ(reasons.size(), 1);
}

}  // namespace
}  // namespace kestrio
