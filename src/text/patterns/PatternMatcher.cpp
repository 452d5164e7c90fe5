#include "text/patterns/PatternMatcher.h"

#include "text/patterns/RegexSafety.h"

#include <algorithm>

namespace kestrio {

namespace {

// Both halves of a surrogate pair are one character.
QString searchedPart(const QString& text) {
    if (text.size() <= greatestSearchedLength) return text;
    int units = 0;
    for (int count = 0; count < greatestSearchedLength && units < text.size(); ++count) {
        const bool isPair = text[units].isHighSurrogate() && units + 1 < text.size() &&
                            text[units + 1].isLowSurrogate();
        units += isPair ? 2 : 1;
    }
    return text.left(units);
}

}  // namespace

std::chrono::nanoseconds PatternScan::timeLeft(const QUuid& pattern) const {
    const auto found = spent_.find(pattern);
    const auto spent = found == spent_.end() ? std::chrono::nanoseconds(0) : found->second;
    return std::max(timeLimit_ - spent, std::chrono::nanoseconds(0));
}

std::vector<PatternMatch> PatternMatcherProtocol::findMatches(const QString& text) const {
    PatternScan scan;
    return deduplicated(findAllMatches(text, scan));
}

std::vector<PatternMatch> deduplicated(std::vector<PatternMatch> matches) {
    std::ranges::stable_sort(matches, [](const PatternMatch& a, const PatternMatch& b) {
        return std::pair(a.range.start, -a.range.length) <
               std::pair(b.range.start, -b.range.length);
    });
    std::vector<PatternMatch> kept;
    for (PatternMatch& match : matches) {
        if (kept.empty() || match.range.start >= kept.back().range.end())
            kept.push_back(std::move(match));
    }
    return kept;
}

PatternMatcher::PatternMatcher(std::shared_ptr<PatternStorageServiceProtocol> storage)
    : patternStorage_(std::move(storage)) {
    reload();
}

PatternMatcher::PatternMatcher(const std::vector<SensitivePattern>& builtIn,
                               const std::vector<SensitivePattern>& custom)
    : active_(std::make_shared<const ActiveList>(compiled(builtIn, custom))) {}

bool PatternMatcher::isSafeRegex(const QString& regex) const {
    return kestrio::isSafeRegex(regex);
}

bool PatternMatcher::isActive(SensitiveInfoType builtIn) const {
    return std::ranges::any_of(*active(), [builtIn](const Active& each) {
        return each.pattern.isBuiltIn && each.pattern.type == builtIn;
    });
}

PatternMatcher::ActiveList PatternMatcher::compiled(const std::vector<SensitivePattern>& builtIn,
                                                    const std::vector<SensitivePattern>& custom) {
    ActiveList list;
    const auto add = [&list](const SensitivePattern& pattern) {
        if (auto expression = RegularExpression::compile(pattern.regex))
            list.push_back({pattern, *std::move(expression)});
    };
    for (const SensitivePattern& pattern : builtIn) {
        if (pattern.isEnabled) add(pattern);
    }
    for (const SensitivePattern& pattern : custom) {
        if (pattern.isEnabled && kestrio::isSafeRegex(pattern.regex)) add(pattern);
    }
    return list;
}

void PatternMatcher::reload() {
    if (!patternStorage_) return;
    auto builtIn = builtInPatterns();
    const auto states = patternStorage_->builtInEnabledStates();
    for (SensitivePattern& pattern : builtIn)
        pattern.isEnabled = states.at(pattern.id);
    auto list = std::make_shared<const ActiveList>(
        compiled(builtIn, patternStorage_->loadCustomPatterns()));
    const std::lock_guard lock(mutex_);
    active_ = std::move(list);
}

std::shared_ptr<const PatternMatcher::ActiveList> PatternMatcher::active() const {
    const std::lock_guard lock(mutex_);
    return active_;
}

std::vector<SensitivePattern> PatternMatcher::activePatterns() const {
    std::vector<SensitivePattern> patterns;
    const auto list = active();
    for (const Active& each : *list)
        patterns.push_back(each.pattern);
    return patterns;
}

std::vector<PatternMatch> PatternMatcher::findAllMatches(const QString& text,
                                                         PatternScan& scan) const {
    const QString searched = searchedPart(text);
    const auto list = active();
    std::vector<PatternMatch> matches;
    for (const auto& [pattern, expression] : *list) {
        if (scan.stop().stop_requested()) break;
        const auto timeLeft = scan.timeLeft(pattern.id);
        const auto start = std::chrono::steady_clock::now();
        const SearchResult result =
            expression.search(searched, {timeLeft, greatestHitCount, scan.stop()});
        scan.spend(pattern.id, std::chrono::steady_clock::now() - start);
        if (!result.isComplete) scan.addUnfinished(pattern.name);
        for (const TextRange& hit : result.hits) {
            matches.push_back(
                {pattern.type, searched.mid(hit.start, hit.length), hit, pattern.isBuiltIn});
        }
    }
    return matches;
}

}  // namespace kestrio
