#include "scrolling/capture/ScrollingStitchWorker.h"

#include <gtest/gtest.h>

#include <latch>

#include "support/ScrolledFrames.h"
#include "support/Waiting.h"

namespace kestrio {
namespace {

using Disposition = ScrollingStitchDisposition;

struct StitchWorkerTest : testing::Test {
    ScrolledFrames frames{ScrollingPage{QSize(400, 3000), 0, 0, 3}, 300};
    ScrollingStitchWorker worker{{}};
    std::vector<std::pair<int, ScrollingStitchOutcome>> delivered;

    void start() {
        worker.start(
            [this](const ScrollingSourceFrame& frame, const ScrollingStitchOutcome& outcome) {
                delivered.emplace_back(frame.metadata.sequenceNumber, outcome);
            });
    }

    ScrollingSourceFrame frame(int sequenceNumber, int y) {
        ScrollingSourceFrame made{frames.at(y), {}};
        made.metadata.sequenceNumber = sequenceNumber;
        return made;
    }

    ScrollingStitchSnapshot finish() {
        return runUntilDone([](ScrollingStitchWorker& from) -> Task<ScrollingStitchSnapshot> {
            const auto finishing = from.finish();
            co_return co_await finishing;
        }(worker));
    }

    std::optional<ScrollingStitchOutcome> process(ScrollingSourceFrame source) {
        return runUntilDone(
            [](ScrollingStitchWorker& from,
               ScrollingSourceFrame taken) -> Task<std::optional<ScrollingStitchOutcome>> {
                const auto processing = from.process(std::move(taken));
                co_return co_await processing;
            }(worker, std::move(source)));
    }
};

TEST_F(StitchWorkerTest, KeepsTheFirstFrameUntilThereIsOneAndTheNewestAfterwards) {
    start();
    // All three wait for the queue, or the first has been taken: it is the seed either way.
    for (const int number : {3, 1, 2})
        worker.submit(frame(number, number * 40));
    ASSERT_TRUE(waitUntil([this] { return !delivered.empty(); }));
    EXPECT_TRUE(delivered.front().second.disposition == Disposition::seeded);
    const int seed = delivered.front().first;
    EXPECT_TRUE(seed == 1 || seed == 3);
    for (const int number : {5, 6, 7, 8, 9, 10})
        worker.submit(frame(number, number * 10 + 100));
    ASSERT_TRUE(waitUntil([this] { return delivered.back().first == 10; }));
    for (std::size_t i = 1; i < delivered.size(); ++i)
        EXPECT_TRUE(i == 1 || delivered[i].first > delivered[i - 1].first);
    const ScrollingStitchSnapshot snapshot = finish();
    EXPECT_TRUE(snapshot.image == frames.joined(seed * 40, 200));
    EXPECT_GE(snapshot.droppedFrameCount, 1);
    EXPECT_GT(snapshot.processingTime, 0);
}

TEST_F(StitchWorkerTest, TakesTheFrameThatWaitsBeforeItFinishes) {
    start();
    worker.submit(frame(0, 0));
    worker.submit(frame(1, 90));
    // Whichever of the two was left out before the seed, the first is in the picture.
    const ScrollingStitchSnapshot snapshot = finish();
    EXPECT_GE(snapshot.acceptedFrameCount, 1);
    EXPECT_TRUE(snapshot.image.copy(0, 0, 400, 300) == frames.at(0));
}

TEST_F(StitchWorkerTest, AResetMakesWhatWentBeforeVanish) {
    start();
    worker.submit(frame(0, 0));
    worker.reset();
    worker.submit(frame(1, 50));
    EXPECT_EQ(finish().acceptedFrameCount, 0);
    waitFor(std::chrono::milliseconds(50));
    EXPECT_TRUE(delivered.empty());
    start();
    EXPECT_TRUE(process(frame(0, 0))->appended);
    EXPECT_EQ(process(frame(1, 0))->disposition, Disposition::duplicate);
    EXPECT_EQ(process(frame(2, 75))->addedHeightPixels, 75);
    EXPECT_TRUE(finish().image == frames.joined(0, 75));
}

}  // namespace
}  // namespace kestrio
