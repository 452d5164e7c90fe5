#include "imaging/codecs/DecodedPictures.h"

#include <gtest/gtest.h>

#include <thread>

#include "imaging/codecs/ImageEncoder.h"
#include "imaging/codecs/ImageLoadError.h"
#include "imaging/codecs/TestPictures.h"

namespace kestrio {
namespace {

QByteArray encoded(int width, int height) {
    return encodeImage(testPicture(width, height, QImage::Format_RGB32), ExportFormat::png);
}

TEST(DecodedPictures, DecodesTheSameBytesOnce) {
    DecodedPictures pictures;
    const QByteArray bytes = encoded(40, 30);
    const QByteArray equal(bytes.constData(), bytes.size());
    const QImage first = pictures.whole(bytes);
    EXPECT_EQ(first, testPicture(40, 30, QImage::Format_RGB32));
    EXPECT_EQ(pictures.whole(bytes).cacheKey(), first.cacheKey());
    EXPECT_EQ(pictures.whole(equal).cacheKey(), first.cacheKey()) << "by content, not by place";
    EXPECT_NE(pictures.whole(encoded(30, 40)).cacheKey(), first.cacheKey());
    EXPECT_THROW(pictures.whole("no picture"), ImageLoadError);
    EXPECT_THROW(pictures.small("no picture"), ImageLoadError);
}

TEST(DecodedPictures, SmallCopiesShowTheSameInFewPixels) {
    DecodedPictures pictures;
    const QImage small = pictures.small(encoded(1800, 900));
    EXPECT_NEAR(small.width(), 2 * small.height(), 2);
    EXPECT_NEAR(small.width() * small.height(), 640 * 640, 2000);
    EXPECT_LT(pictures.size(), 1800 * 900 * 4) << "the whole picture is not kept for it";
    EXPECT_EQ(pictures.small(encoded(60, 30)).size(), QSize(60, 30));
}

TEST(DecodedPictures, ForgetsTheOneLeastWantedBeyondItsLimit) {
    const QByteArray first = encoded(100, 50), second = encoded(100, 51), third = encoded(100, 52);
    DecodedPictures pictures(2 * 100 * 52 * 4 + first.size() + second.size() + third.size());
    const qint64 firstKey = pictures.whole(first).cacheKey();
    const qint64 secondKey = pictures.whole(second).cacheKey();
    EXPECT_EQ(pictures.whole(first).cacheKey(), firstKey);
    pictures.whole(third);
    EXPECT_EQ(pictures.whole(first).cacheKey(), firstKey);
    EXPECT_NE(pictures.whole(second).cacheKey(), secondKey);
    DecodedPictures tiny(1000);
    EXPECT_EQ(tiny.whole(first).size(), QSize(100, 50));
    EXPECT_EQ(tiny.size(), 0);
}

TEST(DecodedPictures, LivesAsLongAsSomebodyHoldsIt) {
    const QByteArray bytes = encoded(40, 30);
    std::weak_ptr<DecodedPictures> seen;
    {
        const auto held = DecodedPictures::shared();
        seen = held;
        const qint64 key = stylePicture(bytes).cacheKey();
        EXPECT_EQ(stylePicture(bytes).cacheKey(), key);
    }
    EXPECT_TRUE(seen.expired());
    EXPECT_TRUE(stylePicture(std::nullopt).isNull());
    EXPECT_TRUE(stylePicture(QByteArray("no picture")).isNull());
}

TEST(DecodedPictures, ServesManyThreads) {
    const QByteArray all[] = {encoded(200, 100), encoded(200, 101), encoded(200, 102)};
    for (int round = 0; round < 20; ++round) {
        // Room for about two of the three.
        DecodedPictures pictures(200 * 250 * 4);
        std::atomic<int> wrong{0};
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&, thread] {
                for (int turn = 0; turn < 30; ++turn) {
                    const int which = (turn + thread) % 3;
                    if (pictures.whole(all[which]).height() != 100 + which) ++wrong;
                    if (pictures.small(all[which]).height() != 100 + which) ++wrong;
                }
            });
        }
        threads.clear();
        EXPECT_EQ(wrong, 0);
        EXPECT_LE(pictures.size(), 200 * 250 * 4);
    }
}

}  // namespace
}  // namespace kestrio
