#pragma once

#include "text/detection/VisualLine.h"
#include "text/patterns/PatternMatcher.h"

namespace kestrio {

/// A piece of private data in a line.
struct Finding {
    SensitiveInfoType type = SensitiveInfoType::custom;
    QString text;     ///< as it was understood, which may differ from what was read
    TextRange range;  ///< units of the line
};

/// Searches lines of one picture. Any thread; one at a time.
class LineSearch {
  public:
    /// What is given must outlive this. `region` is an ISO code: whose phone numbers have no
    /// country code.
    LineSearch(const PatternMatcherProtocol& matcher, const std::vector<OCRResult>& boxes,
               PatternScan& scan, QString region)
        : matcher_(matcher), boxes_(boxes), scan_(scan), region_(std::move(region)) {}

    /// In the order of the line; none lies within another. What a built-in pattern finds counts as
    /// the whole token that it lies in, and not at all where that is something else for sure: where
    /// the reading is doubtful, it counts. What a pattern of the user's finds always counts.
    std::vector<Finding> findingsIn(const VisualLine& line) const;

  private:
    struct Harvest;

    void harvestForm(const VisualLine& line, const struct ReadingForm& form,
                     Harvest& harvest) const;
    bool isCertain(const VisualLine& line, const TextRange& range) const;

    const PatternMatcherProtocol& matcher_;
    const std::vector<OCRResult>& boxes_;
    PatternScan& scan_;
    QString region_;
};

}  // namespace kestrio
