#pragma once

#include "platform/LanguageIdentifier.h"

namespace kestrio {

/// By the Compact Language Detector, which has no state and reads no files.
class Cld2LanguageIdentifier : public LanguageIdentifier {
  public:
    std::optional<LanguageHypothesis> identify(const QString& text) const override;
};

}  // namespace kestrio
