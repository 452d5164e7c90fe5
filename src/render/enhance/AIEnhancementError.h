#pragma once

#include "core/Error.h"

namespace kestrio {

/// Why a picture could not be improved.
class AIEnhancementError : public Error {
  public:
    enum class Case { invalidImage, processingFailed };

    static AIEnhancementError invalidImage() { return AIEnhancementError(Case::invalidImage); }
    static AIEnhancementError processingFailed() {
        return AIEnhancementError(Case::processingFailed);
    }

    Case errorCase() const { return case_; }
    QString errorDescription() const override;

  private:
    explicit AIEnhancementError(Case errorCase) : case_(errorCase) {}

    Case case_;
};

}  // namespace kestrio
