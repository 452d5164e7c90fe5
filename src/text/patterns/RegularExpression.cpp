#include "text/patterns/RegularExpression.h"

#include <unicode/uregex.h>

#include <algorithm>

namespace kestrio {

namespace {

using Matcher = std::unique_ptr<URegularExpression, decltype(&uregex_close)>;
using Clock = std::chrono::steady_clock;

constexpr int stackBytes = 4 * 1024 * 1024;
// ICU counts steps instead of time, of which a millisecond has about this many on a fast machine.
constexpr int stepsPerMillisecond = 20;
constexpr qint64 greatestStepCount = 1'000'000;

const UChar* unitsOf(const QString& text) {
    return reinterpret_cast<const UChar*>(text.utf16());
}

struct Deadline {
    Clock::time_point end;
    std::stop_token stop;

    bool hasPassed() const { return stop.stop_requested() || Clock::now() > end; }
};

// ICU asks these every few thousand steps of one match, and at every place where one may begin.
UBool mayGoOn(const void* context, int32_t) {
    return !static_cast<const Deadline*>(context)->hasPassed();
}

UBool mayAdvance(const void* context, int64_t) {
    return !static_cast<const Deadline*>(context)->hasPassed();
}

void limit(URegularExpression* matcher, const Deadline& deadline, std::chrono::nanoseconds time,
           UErrorCode* status) {
    // The clock is what counts; this ends a match even where ICU does not ask for it.
    const auto steps =
        std::chrono::ceil<std::chrono::milliseconds>(time).count() * stepsPerMillisecond;
    uregex_setTimeLimit(matcher, int32_t(std::clamp<qint64>(steps, 1, greatestStepCount)), status);
    uregex_setStackLimit(matcher, stackBytes, status);
    uregex_setMatchCallback(matcher, mayGoOn, &deadline, status);
    uregex_setFindProgressCallback(matcher, mayAdvance, &deadline, status);
}

}  // namespace

std::optional<RegularExpression> RegularExpression::compile(const QString& pattern) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError place;
    URegularExpression* const compiled =
        uregex_open(unitsOf(pattern), int32_t(pattern.size()), 0, &place, &status);
    if (U_FAILURE(status)) {
        uregex_close(compiled);
        return std::nullopt;
    }
    return RegularExpression(std::shared_ptr<const URegularExpression>(
        compiled,
        [](const URegularExpression* old) { uregex_close(const_cast<URegularExpression*>(old)); }));
}

SearchResult RegularExpression::search(const QString& text, const SearchLimits& limits) const {
    UErrorCode status = U_ZERO_ERROR;
    // A matcher serves one thread; a clone has its own state and shares what was compiled.
    const Matcher matcher(uregex_clone(compiled_.get(), &status), &uregex_close);
    const Deadline deadline{Clock::now() + limits.time, limits.stop};
    if (U_SUCCESS(status)) limit(matcher.get(), deadline, limits.time, &status);
    if (U_SUCCESS(status))
        uregex_setText(matcher.get(), unitsOf(text), int32_t(text.size()), &status);
    SearchResult result;
    while (U_SUCCESS(status) && int(result.hits.size()) < limits.hits &&
           uregex_findNext(matcher.get(), &status)) {
        const int start = uregex_start(matcher.get(), 0, &status);
        const int end = uregex_end(matcher.get(), 0, &status);
        if (U_SUCCESS(status) && end > start) result.hits.push_back({start, end - start});
        if (deadline.hasPassed()) status = U_REGEX_STOPPED_BY_CALLER;
    }
    result.isComplete = U_SUCCESS(status);
    return result;
}

}  // namespace kestrio
