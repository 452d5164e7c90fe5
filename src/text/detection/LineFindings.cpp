#include "text/detection/LineFindings.h"

#include "text/detection/Confirmers.h"
#include "text/detection/PhoneNumbers.h"
#include "text/detection/ReadingForms.h"
#include "text/detection/TokenEdges.h"

#include <algorithm>

namespace kestrio {

namespace {

// A reading is certain where the engine is this sure of all units together and of each.
constexpr double certainMean = 0.9;
constexpr double certainLeast = 0.6;

bool overlap(const TextRange& a, const TextRange& b) {
    return a.start < b.end() && b.start < a.end();
}

bool contains(const TextRange& outer, const TextRange& inner) {
    return outer.start <= inner.start && outer.end() >= inner.end();
}

std::optional<TextRange> confirmed(const QString& text, const PatternMatch& hit) {
    switch (hit.type) {
        case SensitiveInfoType::email:
            return wholeMailAddress(text, hit.range);
        case SensitiveInfoType::creditCard:
            return wholeCardNumber(text, hit.range);
        case SensitiveInfoType::ipv4:
            return wholeIPv4Address(text, hit.range);
        case SensitiveInfoType::ipv6:
            return wholeIPv6Address(text, hit.range);
        case SensitiveInfoType::apiKey:
            return wholeSecretKey(text, hit.range);
        case SensitiveInfoType::phoneNumber:  // searched for in the line as a whole
            return std::nullopt;
        case SensitiveInfoType::custom:
            break;
    }
    return hit.range;
}

// Whether a hit that was refused may have been something private before it was misread.
bool isPlausible(const QString& text, const PatternMatch& hit) {
    const bool isCutOut =
        isWordUnit(unitAt(text, hit.range.start - 1)) || isWordUnit(unitAt(text, hit.range.end()));
    switch (hit.type) {
        case SensitiveInfoType::phoneNumber:
            return isLikePhoneNumber(text, hit.range);
        case SensitiveInfoType::ipv6:
            return !isCutOut && std::ranges::count_if(hit.matchedText, isAsciiDigit) >= 2;
        case SensitiveInfoType::ipv4:
        case SensitiveInfoType::creditCard:
            return !isCutOut;
        case SensitiveInfoType::email:
        case SensitiveInfoType::apiKey:
        case SensitiveInfoType::custom:
            break;
    }
    return true;
}

// Kinds that a phone number or an address may be a part of come first.
int rank(SensitiveInfoType type) {
    switch (type) {
        case SensitiveInfoType::custom:
            return 0;
        case SensitiveInfoType::email:
        case SensitiveInfoType::apiKey:
            return 1;
        case SensitiveInfoType::ipv6:
        case SensitiveInfoType::creditCard:
            return 2;
        case SensitiveInfoType::ipv4:
            return 3;
        case SensitiveInfoType::phoneNumber:
            break;
    }
    return 4;
}

// One finding for those of a kind that overlap, and none of a kind that was only a part of another.
std::vector<Finding> merged(std::vector<Finding> findings) {
    std::ranges::stable_sort(findings, {}, [](const Finding& each) {
        return std::pair(rank(each.type), each.range.start);
    });
    std::vector<Finding> kept;
    for (Finding& finding : findings) {
        const auto rival = std::ranges::find_if(kept, [&finding](const Finding& other) {
            const bool isPhone = finding.type == SensitiveInfoType::phoneNumber;
            return overlap(other.range, finding.range) &&
                   (other.type == finding.type || isPhone || contains(other.range, finding.range));
        });
        if (rival == kept.end()) {
            kept.push_back(std::move(finding));
        } else if (rival->type == finding.type) {
            const int start = std::min(rival->range.start, finding.range.start);
            const int end = std::max(rival->range.end(), finding.range.end());
            if (finding.range.length > rival->range.length) rival->text = finding.text;
            rival->range = rangeBetween(start, end);
        }
    }
    std::ranges::stable_sort(kept, {}, [](const Finding& each) { return each.range.start; });
    return kept;
}

}  // namespace

struct LineSearch::Harvest {
    void add(const ReadingForm& form, SensitiveInfoType type, const TextRange& range) {
        add(findings, form, type, range);
    }
    void add(std::vector<Finding>& to, const ReadingForm& form, SensitiveInfoType type,
             const TextRange& range) const {
        const TextRange origin = form.text.originOf(range);
        if (origin.length == 0) return;
        // Spaces are a part of how these are written.
        const bool isSpaced =
            type == SensitiveInfoType::phoneNumber || type == SensitiveInfoType::creditCard;
        const bool isAsRead = isSpaced && form.joinsNumbers;
        to.push_back(
            {type, isAsRead ? textOf(line, origin) : textOf(form.text.text, range), origin});
    }

    QString line;
    std::vector<Finding> findings = {};
    std::vector<Finding> refused = {};  ///< plausible ones
};

void LineSearch::harvestForm(const VisualLine& line, const ReadingForm& form,
                             Harvest& harvest) const {
    const QString& text = form.text.text;
    bool hasPhoneHit = false;
    for (const PatternMatch& hit : matcher_.findAllMatches(text, scan_)) {
        if (!hit.isBuiltIn) {
            harvest.add(form, hit.type, hit.range);
        } else if (const auto whole = confirmed(text, hit)) {
            harvest.add(form, hit.type, *whole);
        } else {
            hasPhoneHit = hasPhoneHit || hit.type == SensitiveInfoType::phoneNumber;
            const TextRange origin = form.text.originOf(hit.range);
            if (!form.joinsNumbers && isPlausible(text, hit) && !isCertain(line, origin))
                harvest.add(harvest.refused, form, hit.type, hit.range);
        }
    }
    if (hasPhoneHit) {
        for (const TextRange& number : phoneNumbersIn(text, {region_, form.joinsNumbers}))
            harvest.add(form, SensitiveInfoType::phoneNumber, number);
    }
    if (matcher_.isActive(SensitiveInfoType::apiKey)) {
        for (const TextRange& key : misreadSecretKeys(text))
            harvest.add(form, SensitiveInfoType::apiKey, key);
    }
    if (matcher_.isActive(SensitiveInfoType::ipv6)) {
        for (const TextRange& candidate : shortIPv6Candidates(text)) {
            if (const auto whole = wholeIPv6Address(text, candidate))
                harvest.add(form, SensitiveInfoType::ipv6, *whole);
        }
    }
}

bool LineSearch::isCertain(const VisualLine& line, const TextRange& range) const {
    double sum = 0;
    double least = 1;
    int count = 0;
    for (int i = range.start; i < range.end(); ++i) {
        const VisualLine::Unit& unit = line.units[size_t(i)];
        if (unit.box < 0) continue;
        const OCRResult& box = boxes_[size_t(unit.box)];
        double confidence = box.confidence;
        if (box.recognizedText && unit.place < int(box.recognizedText->characterConfidences.size()))
            confidence = box.recognizedText->characterConfidences[size_t(unit.place)];
        sum += confidence;
        least = std::min(least, confidence);
        ++count;
    }
    return count == 0 || (sum / count >= certainMean && least >= certainLeast);
}

std::vector<Finding> LineSearch::findingsIn(const VisualLine& line) const {
    Harvest harvest{line.text};
    for (const ReadingForm& form : readingForms(line)) {
        if (scan_.stop().stop_requested()) return {};
        harvestForm(line, form, harvest);
    }
    for (const Finding& doubtful : harvest.refused) {
        const bool isKnown = std::ranges::any_of(harvest.findings, [&](const Finding& other) {
            return overlap(other.range, doubtful.range);
        });
        if (!isKnown) harvest.findings.push_back(doubtful);
    }
    return merged(std::move(harvest.findings));
}

}  // namespace kestrio
