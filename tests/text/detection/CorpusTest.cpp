#include "text/detection/SecretCorpus.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

constexpr QSize corpusPicture(2000, 20000);
constexpr int lineCount = 1400;
constexpr double leastRecall = 0.99;
constexpr double leastPrecision = 0.95;

struct Score {
    int planted = 0;
    int covered = 0;
    int boxes = 0;
    int hits = 0;
    QStringList misses;
    QStringList falseAlarms;

    double recall() const { return double(covered) / planted; }
    double precision() const { return double(hits) / boxes; }
};

bool isCovered(const ReadLine::Secret& secret, const std::vector<DetectionResult>& found) {
    return std::ranges::all_of(secret.characters, [&found](const QRectF& character) {
        return std::ranges::any_of(found, [&character](const DetectionResult& each) {
            return each.boundingBox.contains(character);
        });
    });
}

bool hits(const DetectionResult& result, const ReadLine& line) {
    return std::ranges::any_of(line.secrets, [&result](const ReadLine::Secret& secret) {
        return std::ranges::any_of(secret.characters, [&result](const QRectF& character) {
            return result.boundingBox.intersects(character);
        });
    });
}

Score scoreOf(unsigned seed, ReadingQuality quality) {
    const PatternMatcher matcher(builtInPatterns(), {});
    PatternScan scan;
    std::mt19937 random(seed);
    Score score;
    for (const CorpusLine& line : corpusLines(seed, lineCount)) {
        const ReadLine read = readLine(line, 100, quality, random);
        const auto found =
            sensitiveInfoIn(read.boxes, corpusPicture, matcher, scan, QStringLiteral("US"));
        for (const ReadLine::Secret& secret : read.secrets) {
            ++score.planted;
            if (isCovered(secret, found))
                ++score.covered;
            else
                score.misses << rawString(secret.type) + QStringLiteral(" in: ") + read.text;
        }
        for (const DetectionResult& each : found) {
            ++score.boxes;
            if (hits(each, read))
                ++score.hits;
            else
                score.falseAlarms << rawString(each.type) + u' ' + each.text +
                                         QStringLiteral(" in: ") + read.text;
        }
    }
    return score;
}

void expectBars(const Score& score) {
    testing::Test::RecordProperty("planted", score.planted);
    testing::Test::RecordProperty("recallPerMille", int(score.recall() * 1000));
    testing::Test::RecordProperty("boxes", score.boxes);
    testing::Test::RecordProperty("precisionPerMille", int(score.precision() * 1000));
    EXPECT_GE(score.recall(), leastRecall) << score.covered << " of " << score.planted << '\n'
                                           << score.misses.mid(0, 40).join(u'\n').toStdString();
    EXPECT_GE(score.precision(), leastPrecision)
        << score.hits << " of " << score.boxes << '\n'
        << score.falseAlarms.mid(0, 40).join(u'\n').toStdString();
}

TEST(SecretCorpus, IsCoveredWhereItIsReadWithoutFaults) {
    expectBars(scoreOf(1, ReadingQuality::faultless));
}

TEST(SecretCorpus, IsCoveredWhereItIsMisread) {
    expectBars(scoreOf(2, ReadingQuality::faulty));
}

}  // namespace
}  // namespace kestrio
