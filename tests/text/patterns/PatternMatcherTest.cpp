#include "text/patterns/PatternMatcher.h"
#include "text/patterns/RegexSafety.h"

#include <gtest/gtest.h>

#include <thread>

namespace kestrio {
namespace {

SensitivePattern customPattern(const QString& regex) {
    return {QUuid::createUuid(), SensitiveInfoType::custom, regex, regex, {}, true, false};
}

PatternMatcher matcherOf(const QStringList& regexes) {
    std::vector<SensitivePattern> patterns;
    for (const QString& regex : regexes)
        patterns.push_back(customPattern(regex));
    return PatternMatcher({}, patterns);
}

QStringList textsOf(const std::vector<PatternMatch>& matches) {
    QStringList texts;
    for (const PatternMatch& match : matches)
        texts << match.matchedText;
    return texts;
}

TEST(RegexSafety, RefusesWhatMayHangOrCannotBeMeant) {
    for (const char* regex :
         {"",        "  \n",    "a|",    "|a",       "(|a)",     "(a|)",
          R"(a\|)",  "a??",     "a++",   "a**",      R"((a)\1)", R"((?<n>a)\k<n>)",
          "(?<=x)y", "(?<!x)y", "(a+)+", "(a{2,})*", "(a?)+",    "(b(a+))*",
          "(a+) +",  "a]",      "[a",    R"([a\])",  "(?:ab)+"}) {
        EXPECT_FALSE(isSafeRegex(QString::fromLatin1(regex))) << regex;
    }
    for (const char* regex : {"a", R"(a\++)", "(?=x)", "(ab)+", "(a+){3}", "(a{2}){1,3}", R"([\]])",
                              "[[:alpha:]_]x", R"(C:\\keys\\)", "a{,x}+", R"(\(a+\)+)"}) {
        EXPECT_TRUE(isSafeRegex(QString::fromLatin1(regex))) << regex;
    }
    EXPECT_TRUE(isSafeRegex(QString(greatestRegexLength, u'a')));
    EXPECT_FALSE(isSafeRegex(QString(greatestRegexLength + 1, u'a')));
}

TEST(PatternMatcher, FindsEachBuiltInTypeAndTemplatesCompile) {
    const PatternMatcher matcher(builtInPatterns(), {});
    const QString text = QStringLiteral(
        "mail ann@example.org card 4111 1111 1111 1111 host 10.1.2.3 "
        "v6 fe80:1:2:3:4:5:6:7 key sk_live_abcdefghij0123456789");
    const auto matches = matcher.findMatches(text);
    std::vector<SensitiveInfoType> types;
    for (const PatternMatch& match : matches) {
        types.push_back(match.type);
        EXPECT_EQ(text.mid(match.range.start, match.range.length), match.matchedText);
    }
    using enum SensitiveInfoType;
    EXPECT_EQ(types, (std::vector{email, creditCard, ipv4, ipv6, apiKey}));
    EXPECT_EQ(textsOf(matcher.findMatches(QStringLiteral("call +49 (030) 1234-5678 now"))),
              QStringList(QStringLiteral("+49 (030) 1234-5678")));
    for (const ExamplePattern& example : examplePatterns()) {
        EXPECT_TRUE(isSafeRegex(example.regex)) << example.regex.toStdString();
        EXPECT_TRUE(RegularExpression::compile(example.regex)) << example.regex.toStdString();
    }
}

TEST(PatternMatcher, LeavesOutWhatIsOffUnsafeOrBroken) {
    auto builtIn = builtInPatterns();
    builtIn[0].isEnabled = false;
    auto off = customPattern(QStringLiteral("c"));
    off.isEnabled = false;
    const PatternMatcher matcher(
        builtIn, {customPattern(QStringLiteral("(")), customPattern(QStringLiteral("(b+)+")), off,
                  customPattern(QStringLiteral("d"))});
    EXPECT_EQ(textsOf(matcher.findMatches(QStringLiteral("b c d e@example.org"))),
              QStringList(QStringLiteral("d")));
    EXPECT_FALSE(matcher.isActive(SensitiveInfoType::email));
    EXPECT_TRUE(matcher.isActive(SensitiveInfoType::ipv4));
    EXPECT_FALSE(matcher.isActive(SensitiveInfoType::custom));
}

TEST(PatternMatcher, KeepsTheFirstAndLongestOfOverlappingHits) {
    const auto matcher = matcherOf(
        {QStringLiteral("bcd"), QStringLiteral("abc"), QStringLiteral("ab"), QStringLiteral("de")});
    EXPECT_EQ(textsOf(matcher.findMatches(QStringLiteral("abcde"))),
              (QStringList{QStringLiteral("abc"), QStringLiteral("de")}));
}

TEST(PatternMatcher, CountsCharactersAndHits) {
    const auto matcher = matcherOf({QStringLiteral("x")});
    const QString pair = QString::fromUcs4(U"\U0001F511");
    const QString inside = pair.repeated(greatestSearchedLength - 1);
    EXPECT_EQ(matcher.findMatches(inside + u'x').size(), 1u);
    EXPECT_EQ(matcher.findMatches(inside + pair + u'x').size(), 0u);
    EXPECT_EQ(matcher.findMatches(QString(5000, u'x')).size(), size_t(greatestHitCount));
    // Hits of no character would use the number up before the first real one.
    const auto optional = matcherOf({QStringLiteral("x*")});
    EXPECT_EQ(optional.findMatches(QString(2000, u'y') + QStringLiteral("xx")).size(), 1u);
}

TEST(PatternMatcher, SharesTheTimeOfAScanBetweenItsTextsAndKeepsWhatWasFound) {
    const auto matcher = matcherOf({QStringLiteral("b|(a|aa)*c"), QStringLiteral("z")});
    const QString text = u'b' + QString(40, u'a') + u'z';
    PatternScan scan({}, std::chrono::milliseconds(50));
    const auto start = std::chrono::steady_clock::now();
    for (int line = 0; line < 100; ++line) {
        const auto found = textsOf(matcher.findAllMatches(text, scan));
        EXPECT_TRUE(found.contains(u"z")) << line;
        EXPECT_TRUE(line > 0 || found.contains(u"b"));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(400));
    EXPECT_EQ(scan.unfinished(), std::set{QStringLiteral("b|(a|aa)*c")});
}

TEST(PatternMatcher, EndsSoonAfterAStop) {
    const auto matcher = matcherOf({QStringLiteral("(a|aa)*c")});
    std::stop_source source;
    PatternScan scan(source.get_token());
    std::jthread stopper([&source] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        source.request_stop();
    });
    const auto start = std::chrono::steady_clock::now();
    matcher.findAllMatches(QString(60, u'a'), scan);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
}

TEST(PatternMatcher, ServesTwoThreadsWhileItIsReloaded) {
    const auto defaults = std::make_shared<MemoryUserDefaults>();
    const auto storage = std::make_shared<PatternStorageService>(defaults);
    PatternMatcher matcher(storage);
    const QString text = QStringLiteral("ann@example.org and 10.0.0.7");
    std::atomic<int> wrong = 0;
    {
        std::vector<std::jthread> threads;
        for (int index = 0; index < 2; ++index) {
            threads.emplace_back([&] {
                for (int i = 0; i < 500; ++i)
                    wrong += matcher.findMatches(text).size() == 2 ? 0 : 1;
            });
        }
        for (int i = 0; i < 50; ++i)
            matcher.reload();
    }
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace kestrio
