#pragma once

#include <QString>
#include <optional>

namespace kestrio {

/// What language a text may be in.
struct LanguageHypothesis {
    QString identifier;     ///< BCP 47, as short as it can be: "en", "zh-Hant"
    double confidence = 0;  ///< 0 to 1
};

/// Tells the language of a text, on this machine and within milliseconds. Any thread.
class LanguageIdentifier {
  public:
    virtual ~LanguageIdentifier() = default;

    /// The likeliest language; none for text that tells nothing, as numbers do.
    virtual std::optional<LanguageHypothesis> identify(const QString& text) const = 0;
};

}  // namespace kestrio
