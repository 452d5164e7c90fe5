#pragma once

#include "text/patterns/PatternStorageService.h"
#include "text/patterns/RegularExpression.h"

#include <map>
#include <mutex>
#include <set>

namespace kestrio {

/// A piece of a text that a pattern has found.
struct PatternMatch {
    SensitiveInfoType type = SensitiveInfoType::custom;
    QString matchedText;
    TextRange range;         ///< in the text that was searched
    bool isBuiltIn = false;  ///< found by a pattern that everybody has

    bool operator==(const PatternMatch&) const = default;
};

/// What each pattern may take for all the lines of one scan.
inline constexpr std::chrono::milliseconds patternTimeLimit(2000);
/// How much of a text is searched, in characters, and how many hits of one pattern count.
inline constexpr int greatestSearchedLength = 30'000;
inline constexpr int greatestHitCount = 1000;

/// What a scan of several texts has spent so far. One thread.
class PatternScan {
  public:
    explicit PatternScan(std::stop_token stop = {},
                         std::chrono::nanoseconds timeLimit = patternTimeLimit)
        : stop_(std::move(stop)), timeLimit_(timeLimit) {}

    const std::stop_token& stop() const { return stop_; }
    /// What a pattern may still take.
    std::chrono::nanoseconds timeLeft(const QUuid& pattern) const;
    void spend(const QUuid& pattern, std::chrono::nanoseconds time) { spent_[pattern] += time; }
    /// The names of patterns that did not get through a text in time or memory.
    const std::set<QString>& unfinished() const { return unfinished_; }
    void addUnfinished(const QString& name) { unfinished_.insert(name); }

  private:
    std::stop_token stop_;
    std::chrono::nanoseconds timeLimit_;
    std::map<QUuid, std::chrono::nanoseconds> spent_;
    std::set<QString> unfinished_;
};

/// Finds private data in texts by patterns. Never throws: a pattern that is broken finds nothing.
class PatternMatcherProtocol {
  public:
    virtual ~PatternMatcherProtocol() = default;

    /// What is found in a text, in its order; of hits that overlap the one that starts first. Any
    /// thread.
    std::vector<PatternMatch> findMatches(const QString& text) const;
    /// Every hit of every pattern, whatever overlaps, pattern by pattern. Ends early after a stop.
    /// Any thread.
    virtual std::vector<PatternMatch> findAllMatches(const QString& text,
                                                     PatternScan& scan) const = 0;
    virtual bool isSafeRegex(const QString& regex) const = 0;
    /// Whether the pattern that everybody has for this is switched on. Any thread.
    virtual bool isActive(SensitiveInfoType builtIn) const = 0;
    /// Takes the patterns and switches as they are stored now. Main thread.
    virtual void reload() = 0;
};

/// Drops every hit that starts before the end of the one kept before it; of two that start together
/// the longer one is kept.
std::vector<PatternMatch> deduplicated(std::vector<PatternMatch> matches);

class PatternMatcher : public PatternMatcherProtocol {
  public:
    /// The patterns that everybody has and those in `storage`.
    explicit PatternMatcher(std::shared_ptr<PatternStorageServiceProtocol> storage);
    /// Exactly these; reload() changes nothing.
    PatternMatcher(const std::vector<SensitivePattern>& builtIn,
                   const std::vector<SensitivePattern>& custom);

    std::vector<PatternMatch> findAllMatches(const QString& text, PatternScan& scan) const override;
    bool isSafeRegex(const QString& regex) const override;
    bool isActive(SensitiveInfoType builtIn) const override;
    void reload() override;
    /// Those that are searched for: enabled, and the user's own only where safe and correct.
    std::vector<SensitivePattern> activePatterns() const;

  private:
    struct Active {
        SensitivePattern pattern;
        RegularExpression expression;
    };
    using ActiveList = std::vector<Active>;

    static ActiveList compiled(const std::vector<SensitivePattern>& builtIn,
                               const std::vector<SensitivePattern>& custom);
    std::shared_ptr<const ActiveList> active() const;

    std::shared_ptr<PatternStorageServiceProtocol> patternStorage_;  ///< may be null
    mutable std::mutex mutex_;  ///< of `active_`, which reload() replaces while others search
    std::shared_ptr<const ActiveList> active_;
};

}  // namespace kestrio
