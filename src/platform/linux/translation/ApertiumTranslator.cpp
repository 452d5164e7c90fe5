#include "platform/linux/translation/ApertiumTranslator.h"

#include "platform/linux/translation/ApertiumModes.h"
#include "platform/linux/translation/ApertiumPipe.h"

#include <QStandardPaths>

namespace kestrio {

namespace {

// Each costs the time limit, or a start; an engine that fails so often fails always.
constexpr int mostFailures = 3;

Task<std::vector<ApertiumMode>> installedModes(ApertiumInstallation installation,
                                               std::stop_token stop) {
    auto work = [installation] {
        const bool isInstalled =
            !QStandardPaths::findExecutable(installation.pipelinePrinter).isEmpty();
        return isInstalled ? modesIn(installation.modes) : std::vector<ApertiumMode>();
    };
    auto reading = runOnStorage(std::move(work), readLimit, std::move(stop));
    std::vector<ApertiumMode> modes = co_await reading;
    co_return modes;
}

}  // namespace

ApertiumTranslator::ApertiumTranslator(ApertiumInstallation installation)
    : installation_(std::move(installation)) {}

Task<std::vector<LanguagePair>> ApertiumTranslator::pairs(std::stop_token stop) {
    auto reading = installedModes(installation_, std::move(stop));
    const std::vector<ApertiumMode> modes = co_await reading;
    std::vector<LanguagePair> pairs;
    pairs.reserve(modes.size());
    for (const ApertiumMode& mode : modes)
        pairs.push_back(mode.pair);
    co_return pairs;
}

Task<> ApertiumTranslator::translate(TranslationRequest request,
                                     std::function<void(TranslatedText)> answered,
                                     std::stop_token stop) {
    const ApertiumInstallation installation = installation_;
    auto reading = installedModes(installation, stop);
    const std::vector<ApertiumMode> modes = co_await reading;
    const auto mode = modeFor(request.pair, modes);
    if (!mode) throw TranslationError(TranslationError::Case::unsupportedPair);
    std::unique_ptr<ApertiumPipe> pipe;
    int failures = 0;
    for (int index = 0; index < request.texts.size(); ++index) {
        TranslatedText result{index, {}, {}};
        try {
            if (failures >= mostFailures) throw TranslationError(TranslationError::Case::failed);
            if (!pipe) {
                pipe = std::make_unique<ApertiumPipe>(ApertiumPipe::Program{
                    installation.pipelinePrinter,
                    installation.modes + u'/' + mode->name + modeEnding, installation.limit});
            }
            auto translating = pipe->translate(request.texts[index], stop);
            result.text = co_await translating;
            if (result.text.isEmpty()) throw TranslationError(TranslationError::Case::failed);
            failures = 0;
        } catch (const TranslationError& error) {
            // What an engine has crashed on must not spoil the texts behind it.
            pipe.reset();
            ++failures;
            result.failure = error.errorDescription();
        }
        answered(std::move(result));
        if (stop.stop_requested()) throw Cancelled();
    }
}

}  // namespace kestrio
