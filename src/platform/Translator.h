#pragma once

#include "core/Error.h"
#include "core/Task.h"

#include <QStringList>
#include <functional>
#include <vector>

namespace kestrio {

/// From which language into which; BCP 47 identifiers, as short as they can be.
struct LanguagePair {
    QString source;
    QString target;

    bool operator==(const LanguagePair&) const = default;
};

struct TranslationRequest {
    LanguagePair pair;
    QStringList texts;
};

/// What became of one text of a request.
struct TranslatedText {
    int index = 0;    ///< in the request
    QString text;     ///< empty where it failed
    QString failure;  ///< a whole sentence for the user; empty where it did not fail
};

/// Nothing could be translated.
class TranslationError : public Error {
  public:
    enum class Case {
        unsupportedPair,
        failed,  ///< the engine crashed, hung, or gave nothing
    };

    explicit TranslationError(Case which) : which_(which) {}
    Case which() const { return which_; }
    QString errorDescription() const override;

  private:
    Case which_;
};

/// Translates text on this machine. Main thread only.
class Translator {
  public:
    virtual ~Translator() = default;

    /// What can be translated at present; empty where no engine is installed.
    virtual Task<std::vector<LanguagePair>> pairs(std::stop_token stop) = 0;
    /// Calls `answered` once for each text, in their order, as soon as its answer is known. Throws
    /// TranslationError where no text can be translated at all, and Cancelled soon after a stop,
    /// which ends the work too.
    virtual Task<> translate(TranslationRequest request,
                             std::function<void(TranslatedText)> answered,
                             std::stop_token stop) = 0;
};

}  // namespace kestrio
