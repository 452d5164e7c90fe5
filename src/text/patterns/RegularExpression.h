#pragma once

#include <QString>
#include <chrono>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

struct URegularExpression;

namespace kestrio {

/// A part of a text, in UTF-16 units.
struct TextRange {
    int start = 0;
    int length = 0;

    int end() const { return start + length; }
    bool operator==(const TextRange&) const = default;
};

/// How much a search may take.
struct SearchLimits {
    std::chrono::nanoseconds time;
    int hits = 0;
    std::stop_token stop = {};
};

struct SearchResult {
    std::vector<TextRange> hits;  ///< in order; what was found before a limit was reached counts
    bool isComplete = true;       ///< false where time, memory or a stop ended it
};

/// An expression of ICU, whose searches end by themselves: the engine looks at the clock while it
/// tries a single match, and what it remembers for going back is limited to some megabytes. A copy
/// shares what was compiled; any thread may search.
class RegularExpression {
  public:
    /// None where ICU does not accept it.
    static std::optional<RegularExpression> compile(const QString& pattern);

    /// The hits of at least one character.
    SearchResult search(const QString& text, const SearchLimits& limits) const;

  private:
    explicit RegularExpression(std::shared_ptr<const URegularExpression> compiled)
        : compiled_(std::move(compiled)) {}

    std::shared_ptr<const URegularExpression> compiled_;
};

}  // namespace kestrio
