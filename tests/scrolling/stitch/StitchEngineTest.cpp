#include "scrolling/stitch/ScrollingStitchEngine.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>

#include "support/NoisePicture.h"
#include "support/ScrolledFrames.h"

namespace kestrio {
namespace {

using Disposition = ScrollingStitchDisposition;

struct Step {
    const char* name;
    int least, most;
};

// Rows of the page at which frames are taken: from `first` on, by steps within a range.
std::vector<int> offsets(const ScrolledFrames& frames, Step step, int count) {
    QRandomGenerator random(11);
    std::vector<int> all = {0};
    while (int(all.size()) < count) {
        const int next = all.back() + random.bounded(step.least, step.most + 1);
        if (next > frames.furthest()) break;
        all.push_back(next);
    }
    return all;
}

QImage stitched(ScrollingStitchEngine& engine) {
    engine.settle();
    return engine.compose();
}

struct PageCase {
    const char* name;
    ScrollingPage page;
};

class GroundTruthTest : public testing::TestWithParam<PageCase> {};

TEST_P(GroundTruthTest, EveryPageComesBackBitForBit) {
    const ScrolledFrames frames(GetParam().page, 600 * GetParam().page.scale);
    const int rows = frames.visibleRows();
    const Step steps[] = {{"tiny", 1, 5},
                          {"single", 1, 1},
                          {"irregular", 6, rows / 2},
                          {"large", rows / 2, rows * 7 / 10},
                          {"wheel", 120, 120},
                          {"mixed", 1, rows / 3}};
    int complete = 0;
    for (const Step& step : steps) {
        ScrollingStitchEngine engine;
        const std::vector<int> all = offsets(frames, step, 24);
        int reached = 0;
        for (const int y : all) {
            const auto outcome = engine.ingest(frames.at(y));
            const bool isRefused = outcome.disposition == Disposition::discontinuity ||
                                   outcome.disposition == Disposition::matchFailed;
            if (!isRefused) reached = y;
        }
        const QImage picture = stitched(engine);
        EXPECT_TRUE(picture == frames.joined(all.front(), reached)) << step.name;
        // Large steps may leave nothing but blank rows in common.
        if (reached == all.back()) ++complete;
    }
    EXPECT_GE(complete, 5);
}

INSTANTIATE_TEST_SUITE_P(Pages, GroundTruthTest,
                         testing::Values(PageCase{"Plain", {QSize(800, 9000), 0, 0, 1}},
                                         PageCase{"Header", {QSize(640, 9000), 64, 0, 2}},
                                         PageCase{"Footer", {QSize(900, 9000), 0, 52, 3}},
                                         PageCase{"Both", {QSize(1300, 9000), 48, 80, 4}},
                                         PageCase{"Dense", {QSize(1280, 9000), 56, 40, 5, 2}}),
                         [](const auto& each) { return std::string(each.param.name); });

const ScrolledFrames& plainPage() {
    static const ScrolledFrames frames(ScrollingPage{QSize(800, 8000), 0, 0, 3}, 600);
    return frames;
}

std::vector<Disposition> ingestAll(ScrollingStitchEngine& engine, const std::vector<QImage>& all) {
    std::vector<Disposition> dispositions;
    for (const QImage& frame : all)
        dispositions.push_back(engine.ingest(frame).disposition);
    return dispositions;
}

TEST(StitchEngineTest, ThreeEqualFramesMeanTheEndUntilOneMoves) {
    ScrollingStitchEngine engine;
    const QImage frame = plainPage().at(0);
    engine.ingest(frame);
    EXPECT_EQ(engine.ingest(frame).disposition, Disposition::duplicate);
    EXPECT_FALSE(engine.ingest(frame).reachedBottom);
    const auto third = engine.ingest(frame);
    EXPECT_TRUE(third.reachedBottom);
    EXPECT_TRUE(third.duplicate);
    const auto moved = engine.ingest(plainPage().at(90));
    EXPECT_TRUE(moved.appended);
    EXPECT_FALSE(moved.reachedBottom);
    EXPECT_EQ(moved.addedHeightPixels, 90);
    EXPECT_EQ(moved.motionPixels, 90);
    EXPECT_EQ(moved.totalHeightPixels, 690);
}

TEST(StitchEngineTest, RefusesWhatItCannotJoinAndGoesOnAfterwards) {
    ScrollingStitchEngine engine;
    const ScrolledFrames& page = plainPage();
    const ScrolledFrames other(ScrollingPage{QSize(800, 3000), 0, 0, 77}, 600);
    EXPECT_FALSE(engine.ingest({}).appended);
    const auto dispositions =
        ingestAll(engine, {page.at(1000), page.at(1000).copy(0, 0, 800, 599), page.at(1100),
                           other.at(500), page.at(5000), page.at(1050), page.at(1200)});
    const std::vector<Disposition> expected = {
        Disposition::seeded, Disposition::discontinuity, Disposition::appended, dispositions[3],
        dispositions[4],     Disposition::discontinuity, Disposition::appended};
    EXPECT_EQ(dispositions, expected);
    for (const int stranger : {3, 4}) {
        EXPECT_NE(dispositions[stranger], Disposition::appended);
        EXPECT_NE(dispositions[stranger], Disposition::duplicate);
        EXPECT_NE(dispositions[stranger], Disposition::noMotion);
    }
    EXPECT_TRUE(stitched(engine) == page.joined(1000, 1200));
    EXPECT_EQ(engine.matchFailureCount(), 0);
}

TEST(StitchEngineTest, SaysWhatStandsInTheWay) {
    const ScrolledFrames& page = plainPage();
    ScrollingStitchEngine engine;
    ingestAll(engine, {page.at(1000), page.at(1300)});
    EXPECT_EQ(engine.ingest(page.at(1250)).obstacle, StitchObstacle::movedBack);
    EXPECT_EQ(engine.ingest(page.at(1250)).consecutiveFailureCount, 0);
    EXPECT_EQ(engine.ingest(page.at(950)).obstacle, StitchObstacle::aboveStart);
    EXPECT_EQ(engine.ingest(page.at(1300).copy(0, 0, 700, 600)).obstacle,
              StitchObstacle::otherSize);
    // What a header hides cannot be known.
    const ScrolledFrames tall(ScrollingPage{QSize(800, 6000), 140, 0, 3}, 600);
    ScrollingStitchEngine hidden;
    hidden.ingest(tall.at(500));
    EXPECT_EQ(hidden.ingest(tall.at(975)).disposition, Disposition::discontinuity);
}

TEST(StitchEngineTest, JoinsBreaksOnlyWhenTold) {
    const ScrolledFrames& page = plainPage();
    ScrollingStitchEngine engine;
    ingestAll(engine, {page.at(0), page.at(3000)});
    EXPECT_EQ(engine.totalHeight(), 600);
    const auto joined = engine.ingestAsBreak(page.at(3000));
    EXPECT_TRUE(joined.appended);
    EXPECT_EQ(joined.addedHeightPixels, 600);
    engine.ingest(page.at(3100));
    const QImage picture = stitched(engine);
    EXPECT_TRUE(picture.copy(0, 0, 800, 600) == page.at(0));
    EXPECT_TRUE(picture.copy(0, 600, 800, 700) == page.joined(3000, 3100));
}

TEST(StitchEngineTest, KeepsLateBarsOutOfTheMiddle) {
    const ScrolledFrames& page = plainPage();
    const QImage bar = noisePicture(QSize(800, 70), QImage::Format_RGB32);
    const auto withBar = [&](int y, int top) {
        QImage frame = page.at(y);
        QPainter(&frame).drawImage(0, top, bar);
        return frame;
    };
    // A header that appears while scrolling, also where little of the frames overlaps.
    for (const int step : {60, 300, 450}) {
        ScrollingStitchEngine engine;
        ingestAll(engine, {page.at(0), withBar(step, 0), withBar(2 * step, 0)});
        EXPECT_TRUE(stitched(engine) == page.joined(0, 2 * step)) << step;
    }
    // A footer that appears late stands once, at the end.
    ScrollingStitchEngine engine;
    ingestAll(engine,
              {page.at(0), page.at(120), withBar(200, 530), withBar(320, 530), withBar(450, 530)});
    const QImage picture = stitched(engine);
    EXPECT_TRUE(picture.copy(0, 0, 800, 980) == page.joined(0, 450).copy(0, 0, 800, 980));
    EXPECT_TRUE(picture.copy(0, 980, 800, 70) == bar);
}

// What lies over the page at one place of the window, with the page shining through.
QImage covered(const ScrolledFrames& page, int y, QRect place, QColor color) {
    QImage frame = page.at(y);
    QPainter painter(&frame);
    painter.fillRect(place, color);
    painter.fillRect(place.x() + 10, place.y() + 12, 60, 9, Qt::black);
    return frame;
}

TEST(StitchEngineTest, KeepsTranslucentBarsAndFloatingButtonsToTheEnd) {
    const ScrolledFrames& page = plainPage();
    const QRect bar(0, 540, 800, 60), button(700, 500, 80, 60);
    for (const auto& [place, color] :
         {std::pair(bar, QColor(255, 240, 200, 200)), std::pair(button, QColor(200, 30, 30))}) {
        for (const int step : {40, 170, 330}) {
            ScrollingStitchEngine engine;
            for (int i = 0; i < 5; ++i)
                engine.ingest(covered(page, i * step, place, color));
            const QImage picture = stitched(engine);
            const int last = 4 * step;
            ASSERT_EQ(picture.size(), QSize(800, 600 + last)) << step;
            EXPECT_TRUE(picture.copy(0, 0, 800, last + place.y()) ==
                        page.joined(0, last).copy(0, 0, 800, last + place.y()))
                << step;
            EXPECT_TRUE(picture.copy(0, last, 800, 600).copy(place) ==
                        covered(page, last, place, color).copy(place));
        }
    }
}

TEST(StitchEngineTest, IgnoresWhatMovesInPlace) {
    const ScrolledFrames& page = plainPage();
    ScrollingStitchEngine engine;
    QRandomGenerator random(5);
    std::vector<int> all;
    for (int y = 0; y < 1500; y += random.bounded(1, 150))
        all.push_back(y);
    for (const int y : all) {
        QImage frame = page.at(y);
        QPainter painter(&frame);
        if (random.bounded(2)) painter.fillRect(300, 240, 2, 18, Qt::black);
        painter.fillRect(700, 200, 80, 80, QColor::fromHsv(random.bounded(360), 200, 200));
        painter.end();
        engine.ingest(frame);
    }
    const QImage picture = stitched(engine);
    const QImage truth = page.joined(0, all.back());
    ASSERT_EQ(picture.size(), truth.size());
    EXPECT_TRUE(picture.copy(0, 0, 290, picture.height()) == truth.copy(0, 0, 290, truth.height()));
}

TEST(StitchEngineTest, LimitsItsOutput) {
    ScrollingStitchConfig config;
    config.maximumOutputBytes = 800 * 4 * 700;
    ScrollingStitchEngine engine(config);
    engine.ingest(plainPage().at(0));
    EXPECT_TRUE(engine.ingest(plainPage().at(100)).appended);
    EXPECT_EQ(engine.ingest(plainPage().at(150)).disposition, Disposition::outputLimitReached);
    EXPECT_TRUE(stitched(engine) == plainPage().joined(0, 100));
    config.maximumOutputBytes = 800 * 4 * 599;
    ScrollingStitchEngine tiny(config);
    EXPECT_EQ(tiny.ingest(plainPage().at(0)).disposition, Disposition::outputLimitReached);
    EXPECT_TRUE(tiny.compose().isNull());
}

TEST(StitchEngineTest, MapsLargePicturesAndKeepsTheirPixels) {
    ScrollingStitchConfig config;
    config.mappedRenderingThresholdBytes = 1;
    ScrollingStitchEngine engine(config);
    ingestAll(engine, {plainPage().at(0), plainPage().at(250), plainPage().at(480)});
    const QImage picture = stitched(engine);
    EXPECT_TRUE(picture == plainPage().joined(0, 480));
    engine.reset();
    EXPECT_EQ(engine.retainedStorageBytes(), 0);
    EXPECT_TRUE(engine.compose().isNull());
    EXPECT_TRUE(picture == plainPage().joined(0, 480));
}

TEST(StitchEngineTest, KeepsTransparencyAndStoresLittle) {
    ScrollingStitchEngine engine;
    for (int y = 0; y <= 2000; y += 200)
        engine.ingest(plainPage().at(y).convertToFormat(QImage::Format_ARGB32_Premultiplied));
    EXPECT_EQ(stitched(engine).convertToFormat(QImage::Format_RGB32), plainPage().joined(0, 2000));
    EXPECT_LT(engine.retainedStorageBytes(), 3 * 800 * 600 * 4);
}

}  // namespace
}  // namespace kestrio
