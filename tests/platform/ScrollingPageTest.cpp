#include "platform/StreamRecorder.h"
#include "platform/XDesk.h"
#include "platform/linux/QtDisplays.h"
#include "platform/linux/x11/X11ScreenStream.h"
#include "platform/linux/x11/X11SyntheticScroll.h"

#include <QTemporaryDir>
#include <csignal>

namespace kestrio {
namespace {

const QRect place(40, 50, 400, 300);
constexpr int header = 30;
constexpr int footer = 20;
constexpr int rows = 1500;
constexpr int clickRows = 60;

/// Another program's page, streamed while it scrolls.
class ScrollingPages : public testing::Test {
  protected:
    ~ScrollingPages() override {
        runUntilDone(stream_.stop());
        program_.terminate();
        program_.waitForFinished();
    }

    void show(const QStringList& options) {
        const QString file = folder_.filePath(QStringLiteral("page.png"));
        program_.start(
            QStringLiteral(KESTRIO_SCROLLING_PAGE),
            QStringList{QStringLiteral("--size"), QStringLiteral("400x300"), QStringLiteral("--at"),
                        QStringLiteral("40,50"), QStringLiteral("--rows"), QString::number(rows),
                        QStringLiteral("--write-page"), file} +
                options);
        QByteArray output;
        ASSERT_TRUE(waitUntil([&] {
            output += program_.readAllStandardOutput();
            return output.contains("ready");
        }));
        page_ = QImage(file).convertToFormat(QImage::Format_RGB32);
        stream_.setFrameHandler(recorder_.handler());
        runUntilDone(stream_.start({QRectF(place), 60}));
        ASSERT_TRUE(waitUntil([&] { return recorder_.count() > 0; }));
    }
    /// What the window shows when this much of the page lies above.
    QImage expected(int offset) const {
        QImage picture = page_.copy(0, 0, place.width(), place.height());
        QPainter painter(&picture);
        painter.drawImage(
            0, header,
            page_.copy(0, header + offset, place.width(), place.height() - header - footer));
        painter.drawImage(0, place.height() - footer,
                          page_.copy(0, page_.height() - footer, place.width(), footer));
        return picture;
    }
    bool shows(int offset) {
        const QImage wanted = expected(offset);
        return waitUntil([&] { return recorder_.last().image == wanted; });
    }

    QTemporaryDir folder_;
    QProcess program_;
    QImage page_;
    StreamRecorder recorder_;
    std::shared_ptr<XcbConnection> connection_ = std::make_shared<XcbConnection>();
    std::shared_ptr<Displays> displays_ = std::make_shared<QtDisplays>(connection_);
    X11SyntheticScroll wheel_{connection_, displays_};
    X11ScreenStream stream_{displays_};
};

const QStringList bars = {QStringLiteral("--sticky-header"), QString::number(header),
                          QStringLiteral("--sticky-footer"), QString::number(footer)};

TEST_F(ScrollingPages, MoveByTheWheelAndShowTheirPageBitForBit) {
    show(bars);
    ASSERT_EQ(page_.size(), QSize(place.width(), header + rows + footer));
    EXPECT_TRUE(shows(0));
    wheel_.scroll(place.center(), 3);
    EXPECT_TRUE(shows(3 * clickRows));
    EXPECT_GE(recorder_.last().dirtyRects.size(), 1U);
    wheel_.scroll(place.center(), -1);
    EXPECT_TRUE(shows(2 * clickRows));
    wheel_.scroll(place.center(), 100);
    EXPECT_TRUE(shows(rows - (place.height() - header - footer)));
}

TEST_F(ScrollingPages, PassThroughPlacesBetweenWhereTheyAreSmooth) {
    show(bars + QStringList{QStringLiteral("--smooth")});
    wheel_.scroll(place.center(), 4);
    EXPECT_TRUE(shows(4 * clickRows));
    EXPECT_GT(recorder_.count(), 4U);
}

TEST_F(ScrollingPages, ScrollByThemselvesOnASignal) {
    show(bars + QStringList{QStringLiteral("--speed"), QStringLiteral("2000")});
    ::kill(static_cast<pid_t>(program_.processId()), SIGUSR1);
    EXPECT_TRUE(shows(rows - (place.height() - header - footer)));
    EXPECT_GT(recorder_.count(), 8U);
}

}  // namespace
}  // namespace kestrio
