#include "text/detection/ReadingForms.h"

#include "text/detection/TokenEdges.h"

#include <QRegularExpression>
#include <algorithm>

namespace kestrio {

namespace {

bool isLatin(QChar unit) {
    return unit.unicode() < 0x80 && unit.isLetterOrNumber();
}

// One unit for one, so that places stay.
QChar plainUnit(QChar unit) {
    const char16_t code = unit.unicode();
    if (code >= 0xFF01 && code <= 0xFF5E) return QChar(char16_t(code - 0xFEE0));
    switch (code) {
        case 0x00A0:  // spaces of other widths
        case 0x2002:
        case 0x2003:
        case 0x2009:
        case 0x202F:
        case 0x3000:
            return u' ';
        case 0x2010:  // hyphens, dashes, the minus sign
        case 0x2011:
        case 0x2012:
        case 0x2013:
        case 0x2014:
        case 0x2212:
            return u'-';
        case 0x00A9:  // what an @ is taken for
        case 0x00AE:
            return u'@';
        case 0x3002:  // the full stop of Chinese and Japanese
        case 0x00B7:
            return u'.';
        case 0xFE55:
        case 0x2236:
            return u':';
        default:
            return unit;
    }
}

// The text without the spaces that `isDropped` names; wide gaps always stay.
template <typename Condition>
MappedText withoutSpaces(const MappedText& from, const VisualLine& line, Condition isDropped) {
    MappedText result;
    for (int i = 0; i < from.text.size(); ++i) {
        const int origin = from.origins[size_t(i)];
        const bool isSpace = from.text[i] == u' ';
        const bool isWide = origin >= 0 && line.units[size_t(origin)].gap == Gap::wide;
        if (isSpace && !isWide && isDropped(i)) continue;
        result.append(from.text[i], origin);
    }
    return result;
}

QChar nextInk(const QString& text, int index, int step) {
    do
        index += step;
    while (unitAt(text, index) == u' ');
    return unitAt(text, index);
}

enum class Side { behind, before, both };

// Spaces beside the signs that hold addresses together. Behind a full stop only where no sentence
// seems to begin.
MappedText withTightSigns(const MappedText& from, const VisualLine& line, Side side) {
    const QString& text = from.text;
    return withoutSpaces(from, line, [&text, side](int index) {
        const QChar before = nextInk(text, index, -1);
        const QChar after = nextInk(text, index, 1);
        const auto joins = [](QChar sign) { return sign == u'_' || sign == u'@' || sign == u':'; };
        if (side != Side::before && joins(before)) return isLatin(after) || joins(after);
        if (side != Side::before && before == u'.') return isLatin(after) && !after.isUpper();
        if (side != Side::behind && joins(after)) return isLatin(before);
        if (side != Side::behind && after == u'.') return isLatin(before);
        return false;
    });
}

QStringView wordAround(const QString& text, int index) {
    const auto isPart = [&text](int at) {
        const QChar unit = unitAt(text, at);
        return isWordUnit(unit) || unit == u'.' || unit == u':';
    };
    int start = index;
    int end = index;
    while (isPart(start - 1))
        --start;
    while (isPart(end))
        ++end;
    return QStringView(text).mid(start, end - start);
}

// Whether a word has letters that no number has, hexadecimal digits included.
bool isWordOfLetters(QStringView word) {
    static const QString numeric = QStringLiteral("0123456789abcdefABCDEF.:-+()OoQlI|");
    return std::ranges::any_of(word, [](QChar unit) { return !numeric.contains(unit); });
}

// Whether the space at a place may be one within a number, or beside a sign within it.
bool isWithinNumber(const QString& text, int index) {
    const auto isOfNumber = [](QChar unit) {
        return isAsciiDigit(unit) || QStringView(u"-+().").contains(unit);
    };
    const QChar before = nextInk(text, index, -1);
    const QChar after = nextInk(text, index, 1);
    return isOfNumber(before) && isOfNumber(after) && after != u'+' &&
           (isAsciiDigit(before) || isAsciiDigit(after)) &&
           !isWordOfLetters(wordAround(text, index)) &&
           !isWordOfLetters(wordAround(text, index + 1));
}

MappedText withTightNumbers(const MappedText& from, const VisualLine& line) {
    return withoutSpaces(from, line,
                         [&from](int index) { return isWithinNumber(from.text, index); });
}

// One space less each, where an address may have been split: other numbers stand beside it.
std::vector<MappedText> withSingleJoints(const MappedText& from, const VisualLine& line) {
    constexpr int greatestCount = 8;
    const auto isOfAddress = [](QStringView word) {
        return word.contains(u'.') || word.contains(u':');
    };
    std::vector<MappedText> forms;
    for (int i = 1; i + 1 < from.text.size() && int(forms.size()) < greatestCount; ++i) {
        if (from.text[i] != u' ') continue;
        const QStringView before = wordAround(from.text, i);
        const QStringView after = wordAround(from.text, i + 1);
        if (before.isEmpty() || after.isEmpty() || isWordOfLetters(before) ||
            isWordOfLetters(after) || (!isOfAddress(before) && !isOfAddress(after)))
            continue;
        forms.push_back(withoutSpaces(from, line, [i](int index) { return index == i; }));
    }
    return forms;
}

MappedText withoutSeams(const MappedText& from, const VisualLine& line) {
    return withoutSpaces(from, line, [&](int index) {
        return std::ranges::find(line.seams, from.origins[size_t(index)]) != line.seams.end();
    });
}

QChar digitFor(QChar letter) {
    switch (letter.unicode()) {
        case u'O':
        case u'o':
        case u'Q':
            return u'0';
        case u'l':
        case u'I':
        case u'i':
        case u'|':
        case u'!':
            return u'1';
        case u'Z':
        case u'z':
            return u'2';
        case u'S':
        case u's':
            return u'5';
        case u'B':
            return u'8';
        case u'g':
        case u'q':
            return u'9';
        default:
            return letter;
    }
}

// Letters for digits in numbers and in what has the colons of an address.
MappedText withDigits(MappedText form) {
    static const QRegularExpression single(QStringLiteral("(?<=[0-9] )[lIOo|](?= [0-9])"));
    auto singles = single.globalMatch(form.text);
    while (singles.hasNext()) {
        const int place = int(singles.next().capturedStart());
        form.text[place] = digitFor(form.text[place]);
    }
    static const QRegularExpression word(
        QStringLiteral("[0-9A-Fa-fOoQlIi|!ZzSsgq][0-9A-Fa-fOoQlIi|!ZzSsgq.:-]+"));
    auto found = word.globalMatch(form.text);
    while (found.hasNext()) {
        const auto match = found.next();
        const int start = int(match.capturedStart());
        const int end = int(match.capturedEnd());
        if (isLatin(unitAt(form.text, start - 1)) || isLatin(unitAt(form.text, end))) continue;
        const QString units = match.captured();
        const auto digits = std::ranges::count_if(units, isAsciiDigit);
        const auto letters = std::ranges::count_if(units, [](QChar c) { return c.isLetter(); });
        const bool isHexadecimal = units.count(u':') >= 2 && digits > 0;
        if (!isHexadecimal && digits < letters) continue;
        for (int i = start; i < end; ++i) {
            const bool isKept = isHexadecimal && QStringView(u"bB").contains(form.text[i]);
            if (!isKept) form.text[i] = digitFor(form.text[i]);
        }
    }
    return form;
}

// Digits for letters in the last label of a host, which has none.
MappedText withLetteredHosts(MappedText form) {
    static const QRegularExpression lastLabel(
        QStringLiteral(R"(@[\w.-]+\.([A-Za-z015]{2,})(?![\w.-]))"));
    auto found = lastLabel.globalMatch(form.text);
    while (found.hasNext()) {
        const auto match = found.next();
        for (int i = int(match.capturedStart(1)); i < match.capturedEnd(1); ++i) {
            if (form.text[i] == u'0') form.text[i] = u'o';
            if (form.text[i] == u'1') form.text[i] = u'l';
            if (form.text[i] == u'5') form.text[i] = u's';
        }
    }
    return form;
}

}  // namespace

std::vector<ReadingForm> readingForms(const VisualLine& line) {
    std::vector<ReadingForm> forms;
    const auto add = [&forms](MappedText text, bool joinsNumbers) {
        const bool isKnown = std::ranges::any_of(
            forms, [&text](const ReadingForm& other) { return other.text.text == text.text; });
        if (!isKnown) forms.push_back({std::move(text), joinsNumbers});
    };
    const MappedText given = mapped(line.text);
    MappedText plain = given;
    std::ranges::transform(plain.text, plain.text.begin(), plainUnit);
    add(given, false);
    for (const MappedText& each : {plain, withoutSeams(plain, line), withDigits(plain)}) {
        std::vector<ReadingForm> spacings = {{each, false}};
        for (const Side side : {Side::behind, Side::before, Side::both})
            spacings.push_back({withTightSigns(each, line, side), false});
        spacings.push_back({withTightNumbers(each, line), true});
        for (MappedText& joined : withSingleJoints(each, line))
            spacings.push_back({std::move(joined), true});
        for (const ReadingForm& spacing : spacings) {
            add(spacing.text, spacing.joinsNumbers);
            add(withDigits(spacing.text), spacing.joinsNumbers);
            add(withLetteredHosts(spacing.text), spacing.joinsNumbers);
        }
    }
    return forms;
}

}  // namespace kestrio
