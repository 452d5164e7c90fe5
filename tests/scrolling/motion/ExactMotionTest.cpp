#include "scrolling/motion/ExactMotion.h"

#include <gtest/gtest.h>

#include "support/NoisePicture.h"
#include "support/ScrolledFrames.h"

namespace kestrio {
namespace {

using Verdict = ExactMotion::Verdict;

// Compares two frames and keeps what the comparison refers to.
struct Compared {
    Compared(const QImage& previous, const QImage& current)
        : before(previous), now(current), comparison(before, now) {}

    ExactMotion search(int most = 400) const { return comparison.search(most, most); }

    RowSignature before, now;
    ExactComparison comparison;
};

// A row differs from the one above it somewhere in the strip.
bool showsAnything(const QImage& frame, QRect strip, int y) {
    return y > 0 && frame.copy(strip.x(), y, strip.width(), 1) !=
                        frame.copy(strip.x(), y - 1, strip.width(), 1);
}

TEST(RowSignatureTest, TellsTheSameRowsFromOthers) {
    const QImage page = paintScrollingPage(ScrollingPage{QSize(403, 1200), 0, 0, 4});
    const QImage first = page.copy(0, 0, 403, 700), second = page.copy(0, 211, 403, 700);
    const RowSignature a(first), b(second);
    ASSERT_EQ(a.strips(), 16);
    for (int strip = 0; strip < a.strips(); ++strip) {
        const int left = 403 * strip / 16;
        const QRect columns(left, 0, 403 * (strip + 1) / 16 - left, 1);
        for (int y = 1; y < 480; y += 7) {
            EXPECT_EQ(b.hashes(strip)[y], a.hashes(strip)[y + 211]);
            EXPECT_EQ(b.keys(strip)[y] != 0, showsAnything(second, columns, y))
                << strip << " " << y;
        }
    }
    QImage touched = first;
    touched.setPixel(402, 300, touched.pixel(402, 300) ^ 1u);
    EXPECT_NE(RowSignature(touched).hashes(15)[300], a.hashes(15)[300]);
    EXPECT_EQ(RowSignature(touched).hashes(15)[301], a.hashes(15)[301]);
}

TEST(ExactMotionTest, FindsEveryMotionToThePixel) {
    const ScrolledFrames frames(ScrollingPage{QSize(800, 6000), 50, 40, 3}, 700);
    for (const int delta : {1, 2, 3, 5, 33, 149, 380, -1, -47, -300}) {
        const Compared compared(frames.at(900), frames.at(900 + delta));
        const ExactMotion motion = compared.search();
        EXPECT_EQ(motion.verdict, Verdict::moved) << delta;
        EXPECT_EQ(motion.deltaY, delta);
        EXPECT_EQ(motion.evidence.contradicted, 0);
        EXPECT_TRUE(motion.hasExactRows);
    }
}

TEST(ExactMotionTest, SeesMotionBesideWhatStandsOrMovesByItself) {
    const ScrolledFrames frames(ScrollingPage{QSize(800, 6000), 0, 0, 3}, 700);
    const auto decorated = [&frames](int y, int phase) {
        QImage frame = frames.at(y);
        QPainter painter(&frame);
        painter.drawImage(0, 0, frames.page(), 0, 100, 250, 700);  // a sidebar
        painter.fillRect(600, 300, 90, 90, QColor(phase * 50, 99, 255 - phase * 50));
        painter.drawImage(600, 310, noisePicture(QSize(90, 50 + phase)), 0, phase);
        return frame;
    };
    const Compared compared(decorated(1000, 1), decorated(1090, 2));
    const ExactMotion motion = compared.search();
    EXPECT_EQ(motion.verdict, Verdict::moved);
    EXPECT_EQ(motion.deltaY, 90);
    const Compared animated(decorated(1000, 1), decorated(1000, 3));
    EXPECT_NE(animated.search().verdict, Verdict::moved);
    EXPECT_TRUE(animated.comparison.isMostlyStill());
    EXPECT_FALSE(compared.comparison.isMostlyStill());
}

TEST(ExactMotionTest, CallsRepeatingRowsAmbiguous) {
    QImage page(400, 3000, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    const QImage row = paintScrollingHeader(ScrollingPage{QSize(400, 100), 24});
    for (int y = 0; y < 3000; y += 30)
        painter.drawImage(0, y, row);
    painter.end();
    const ScrolledFrames frames(page, 600);
    const Compared compared(frames.at(300), frames.at(300 + 47));
    const ExactMotion motion = compared.search();
    EXPECT_EQ(motion.verdict, Verdict::ambiguous);
    EXPECT_NE(std::ranges::find(motion.alternatives, 47), motion.alternatives.end());
    EXPECT_NE(std::ranges::find(motion.alternatives, 77), motion.alternatives.end());
    // One row that occurs only once decides.
    painter.begin(&page);
    painter.fillRect(100, 700, 80, 9, Qt::red);
    painter.end();
    const ScrolledFrames marked(page, 600);
    const Compared decided(marked.at(300), marked.at(347));
    EXPECT_EQ(decided.search().verdict, Verdict::moved);
    EXPECT_EQ(decided.search().deltaY, 47);
}

TEST(ExactMotionTest, FindsBandsToTheRow) {
    const ScrolledFrames frames(ScrollingPage{QSize(800, 6000), 57, 43, 3}, 700);
    const Compared compared(frames.at(900), frames.at(997));
    // Blank rows beside a band look as if they belonged to it.
    const ExactBands found = compared.comparison.fixedBands(97);
    EXPECT_GE(found.bands.top, 57);
    EXPECT_LE(found.bands.top, 80);
    EXPECT_GE(found.bands.bottom, 43);
    EXPECT_LE(found.bands.bottom, 60);
    EXPECT_EQ(found.bottomLimit, found.bands.bottom);
    const ScrolledFrames plain(ScrollingPage{QSize(800, 6000), 0, 0, 3}, 700);
    const Compared without(plain.at(900), plain.at(997));
    EXPECT_EQ(without.comparison.fixedBands(97).bands, FixedBands());
}

TEST(ExactMotionTest, PutsSeamsBelowWhatIsNew) {
    const ScrolledFrames frames(ScrollingPage{QSize(800, 6000), 0, 0, 3}, 700);
    QImage current = frames.at(1000);
    QPainter(&current).drawImage(0, 0, noisePicture(QSize(800, 90), QImage::Format_RGB32));
    const Compared compared(frames.at(900), current);
    EXPECT_NEAR(compared.comparison.firstSoundRow(100, 40, 600), 90, 1);
    EXPECT_EQ(compared.comparison.firstSoundRow(100, 200, 600), 200);
}

}  // namespace
}  // namespace kestrio
