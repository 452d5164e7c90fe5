#include "text/patterns/PatternMatcher.h"
#include "text/patterns/RegexSafety.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <random>

namespace kestrio {
namespace {

// Expressions that pass the check and still go back and forth for ever, or remember without end.
class HostileExpressions {
  public:
    QString next() {
        for (;;) {
            QString regex;
            const int count = below(4) + 1;
            for (int i = 0; i < count; ++i)
                regex += piece(2);
            regex += pick({"b", "$", "[^a]", "c{2,}", ""});
            if (isSafeRegex(regex) && RegularExpression::compile(regex)) return regex;
        }
    }

  private:
    int below(int end) { return int(random_() % unsigned(end)); }
    QString pick(std::initializer_list<const char*> choices) {
        return QString::fromLatin1(choices.begin()[below(int(choices.size()))]);
    }
    QString piece(int depth) {
        const QString atom = depth == 0 || below(3) == 0
                                 ? pick({"a", ".", "\\w", "[a-z]", "aa", "\\S"})
                                 : group(depth - 1);
        return atom + pick({"*", "+", "{1,50}", "{3,}", "?", "", "{0,1000}", "*?"});
    }
    QString group(int depth) {
        const QString start = pick({"(", "(", "(", "(?=", "(?>", "(?!"});
        switch (below(3)) {
            case 0:
                return start + pick({"a|a", "a|aa", "a|ab|aab", ".|a", "\\w|[a-z]"}) + u')';
            case 1:
                return start + piece(depth) + u'|' + piece(depth) + u')';
            default:
                return start + pick({"a", "ab", "."}) + pick({"a", "b", "\\w"}) + u')';
        }
    }

    std::mt19937 random_{20250117};
};

QStringList hostileSubjects() {
    return {QString(30, u'a') + u'!', QString(greatestSearchedLength, u'a'),
            QStringLiteral("ab").repeated(greatestSearchedLength / 2),
            QStringLiteral("aaab ").repeated(2000), QString(3000, u'a') + u'\n'};
}

qint64 peakMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) * 1024;
}

struct Tally {
    std::chrono::nanoseconds longest{0};
    int unfinished = 0;
};

// 500 expressions, each on one subject.
Tally scanAll(std::chrono::milliseconds limit) {
    HostileExpressions expressions;
    const QStringList subjects = hostileSubjects();
    Tally tally;
    for (int i = 0; i < 500; ++i) {
        const QString regex = expressions.next();
        const PatternMatcher matcher(
            {}, {{QUuid::createUuid(), SensitiveInfoType::custom, regex, regex, {}, true, false}});
        PatternScan scan({}, limit);
        const auto start = std::chrono::steady_clock::now();
        const auto matches = matcher.findAllMatches(subjects[i % subjects.size()], scan);
        tally.longest = std::max(tally.longest, std::chrono::steady_clock::now() - start);
        tally.unfinished += scan.unfinished().empty() ? 0 : 1;
        EXPECT_LE(matches.size(), size_t(greatestHitCount));
    }
    return tally;
}

TEST(HostilePatterns, EndInTimeAndMemory) {
    const qint64 before = peakMemory();
    const Tally tally = scanAll(std::chrono::milliseconds(20));
    EXPECT_GT(tally.unfinished, 100) << "the expressions are too tame to show anything";
    EXPECT_LT(tally.longest, std::chrono::milliseconds(320));
    EXPECT_LT(peakMemory() - before, 64 * 1024 * 1024);
}

TEST(Repetition, HostilePatternsEndWithinTheRealLimit) {
    const Tally tally = scanAll(patternTimeLimit);
    EXPECT_LT(tally.longest, std::chrono::milliseconds(2500));
    RecordProperty("longestMilliseconds", int(tally.longest.count() / 1'000'000));
    RecordProperty("unfinished", tally.unfinished);
}

}  // namespace
}  // namespace kestrio
