#pragma once

#include "platform/Translator.h"

namespace kestrio {

/// Where Apertium is.
struct ApertiumInstallation {
    /// Prints the pipeline of a mode as a shell script whose parts pass on what they have at each
    /// end mark. A path, or found in the search path.
    QString pipelinePrinter = QStringLiteral("apertium-wblank-mode");
    QString modes = QStringLiteral("/usr/share/apertium/modes");
    /// How long one text may take.
    std::chrono::milliseconds limit = std::chrono::seconds(10);
};

/// By the language pairs of Apertium that are installed, looked for anew each time.
class ApertiumTranslator : public Translator {
  public:
    explicit ApertiumTranslator(ApertiumInstallation installation = {});

    Task<std::vector<LanguagePair>> pairs(std::stop_token stop) override;
    Task<> translate(TranslationRequest request, std::function<void(TranslatedText)> answered,
                     std::stop_token stop) override;

  private:
    const ApertiumInstallation installation_;
};

}  // namespace kestrio
