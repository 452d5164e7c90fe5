#include "text/detection/PhoneNumbers.h"

#include "text/detection/TokenEdges.h"

// The library's headers declare unused things.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-parameter"
#pragma GCC diagnostic ignored "-Wshadow"
#include <phonenumbers/phonenumbermatch.h>
#include <phonenumbers/phonenumbermatcher.h>
#include <phonenumbers/phonenumberutil.h>
#pragma GCC diagnostic pop

#include <QLocale>
#include <QRegularExpression>
#include <algorithm>

namespace kestrio {

namespace {

using i18n::phonenumbers::PhoneNumberMatch;
using i18n::phonenumbers::PhoneNumberMatcher;
using i18n::phonenumbers::PhoneNumberUtil;

constexpr int smallestDigitCount = 7;
constexpr int greatestDigitCount = 15;  // of numbers with their country code
constexpr int greatestTryCount = 1000;

int digitCount(const QString& text) {
    return int(std::ranges::count_if(text, isAsciiDigit));
}

bool overlap(const TextRange& a, const TextRange& b) {
    return a.start < b.end() && b.start < a.end();
}

bool overlapsAny(const std::vector<TextRange>& ranges, const TextRange& range) {
    return std::ranges::any_of(ranges,
                               [&range](const TextRange& each) { return overlap(each, range); });
}

// A word that says that a phone number follows.
bool isCalledPhone(const QString& before) {
    static const QRegularExpression label(
        QStringLiteral(
            R"((?:\b(?:tele)?(?:phone|fon)|\btel|\bmob(?:ile|il)?|\bcell|\bfax|\bcall|\bhandy)"
            R"(|\bwhatsapp|\bsms|\bt[ée]l[ée]phone|\bt[ée]l|\bhotline|電話|电话|手机|手機|☎|📞))"
            R"((?:番号|号码|號碼)?(?:[\s_]*(?:number|num|no|nr|us|me))?["'”]?\s*[.:=：)]*\s*["'“]?$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    return label.match(before).hasMatch();
}

// Words and signs that say that it is something else.
bool isCalledOtherwise(const QString& before, const QString& after) {
    static const QRegularExpression label(
        QStringLiteral(
            R"((?:#|№|\b(?:[a-z]*[\s_-]?id|order|invoice|ticket|ref|reference|number|no|nr|sku|serial)"
            R"(|part|model|item|tracking|case|issue|bug|isbn|issn|ean|imei|account|batch|job|pid|run)"
            R"(|timestamp|time|ts|epoch|seed|hash|commit|size|bytes|offset|port|lat|lon|lng|build)"
            R"(|version|total|count|value|parent|customer|user|client|member|bestellung|rechnung|kunde|auftrag)))"
            R"(\w*["'”]?\s*[#:=.]*\s*["'“]?$)"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression unit(
        QStringLiteral(R"(^\s*(?:%|[kmgt]i?b\b|bytes?\b|[mnµ]?s\b|px\b|rows?\b|items?\b|hz\b))"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression money(
        QStringLiteral(R"([$€£¥₹]\s*$|\b(?:USD|EUR|GBP|JPY)\s*$)"));
    return label.match(before).hasMatch() || unit.match(after).hasMatch() ||
           money.match(before).hasMatch();
}

// "(555) 123-4567", "555.123.4567"; area codes and exchanges begin with 2 to 9.
bool isWrittenNorthAmerican(const QString& number) {
    static const QRegularExpression form(QStringLiteral(
        R"(^(?:\+?1[-. ]?)?(?:\([2-9]\d{2}\) ?[2-9]?\d{2,3}[-. ]|[2-9]\d{2}([-. ])\d{3}\1)\d{4}$)"));
    return form.match(number).hasMatch();
}

bool isBare(const QString& number) {
    return std::ranges::all_of(number, isAsciiDigit);
}

// Digits that go on before or behind it are of a longer number or an identifier.
bool isCutOut(const QString& text, const TextRange& range) {
    const auto goesOn = [&text](int beside, int beyond) {
        const QChar unit = unitAt(text, beside);
        if (isWordUnit(unit)) return true;
        return (unit == u'-' || unit == u'.' || unit == u'/' || unit == u':') &&
               isAsciiDigit(unitAt(text, beyond));
    };
    return goesOn(range.start - 1, range.start - 2) || goesOn(range.end(), range.end() + 1);
}

struct Candidate {
    TextRange range;
    bool isValid = false;
    bool hasCountry = false;
};

std::vector<Candidate> candidatesIn(const QString& text, const PhoneSearch& search,
                                    PhoneNumberMatcher::Leniency leniency) {
    const QByteArray utf8 = text.toUtf8();
    const PhoneNumberUtil& util = *PhoneNumberUtil::GetInstance();
    PhoneNumberMatcher matcher(util, utf8.toStdString(), search.region.toStdString(), leniency,
                               greatestTryCount);
    std::vector<Candidate> candidates;
    while (matcher.HasNext()) {
        PhoneNumberMatch match;
        matcher.Next(&match);
        // The library counts bytes.
        const int start = int(QString::fromUtf8(utf8.left(match.start())).size());
        const auto raw = QString::fromStdString(match.raw_string());
        candidates.push_back(
            {{start, int(raw.size())}, util.IsValidNumber(match.number()), raw.startsWith(u'+')});
    }
    return candidates;
}

bool isAccepted(const QString& text, const Candidate& candidate, const PhoneSearch& search) {
    const QString number = textOf(text, candidate.range);
    const QString before = text.left(candidate.range.start);
    if (isCutOut(text, candidate.range)) return false;
    if (candidate.hasCountry || isCalledPhone(before)) return true;
    if (isCalledOtherwise(before, text.mid(candidate.range.end()))) return false;
    if (search.joinsNumbers && isBare(number)) return candidate.isValid && number.startsWith(u'0');
    return candidate.isValid || isWrittenNorthAmerican(number);
}

// What stands behind a word like "phone", whatever the library makes of it.
std::vector<TextRange> calledPhones(const QString& text) {
    static const QRegularExpression run(QStringLiteral(R"([+(]*\d[\d ()./-]{5,}\d)"));
    std::vector<TextRange> ranges;
    auto found = run.globalMatch(text);
    while (found.hasNext()) {
        const auto match = found.next();
        const TextRange range{int(match.capturedStart()), int(match.capturedLength())};
        const int digits = digitCount(match.captured());
        if (digits < smallestDigitCount || digits > greatestDigitCount) continue;
        if (isCalledPhone(text.left(range.start)) && !isCutOut(text, range))
            ranges.push_back(range);
    }
    return ranges;
}

}  // namespace

QString phoneRegion() {
    const QString region = QLocale::territoryToCode(QLocale::system().territory());
    return region.isEmpty() ? QStringLiteral("US") : region;
}

bool isLikePhoneNumber(const QString& text, const TextRange& token) {
    const int digits = digitCount(textOf(text, token));
    return digits > smallestDigitCount && digits <= greatestDigitCount && !isCutOut(text, token) &&
           !isCalledOtherwise(text.left(token.start), text.mid(token.end()));
}

std::vector<TextRange> phoneNumbersIn(const QString& text, const PhoneSearch& search) {
    std::vector<TextRange> numbers;
    if (digitCount(text) < smallestDigitCount) return numbers;
    // The strictest first, since a lenient search may take more than the number.
    for (const auto leniency : {PhoneNumberMatcher::STRICT_GROUPING, PhoneNumberMatcher::VALID,
                                PhoneNumberMatcher::POSSIBLE}) {
        for (Candidate candidate : candidatesIn(text, search, leniency)) {
            const QString number = textOf(text, candidate.range);
            if (leniency != PhoneNumberMatcher::STRICT_GROUPING && !isBare(number))
                candidate.isValid = false;
            if (!overlapsAny(numbers, candidate.range) && isAccepted(text, candidate, search))
                numbers.push_back(candidate.range);
        }
    }
    for (const TextRange& called : calledPhones(text)) {
        if (!overlapsAny(numbers, called)) numbers.push_back(called);
    }
    std::ranges::sort(numbers, {}, &TextRange::start);
    return numbers;
}

}  // namespace kestrio
