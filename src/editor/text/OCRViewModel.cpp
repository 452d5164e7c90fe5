#include "editor/text/OCRViewModel.h"

#include "core/Localisation.h"
#include "text/recognition/OCRError.h"
#include "text/recognition/OCRService.h"

#include <QPointer>

namespace kestrio {

struct OCRViewModel::Outcome {
    std::vector<OCRResultWithConfidence> results;
    QString failure;
    bool isCancelled = false;
};

OCRViewModel::OCRViewModel(const TextServices& services)
    : service_(services.ocr ? services.ocr : std::make_shared<OCRService>(nullptr)),
      pasteboard_(services.pasteboard),
      translation_(services) {}

OCRViewModel::~OCRViewModel() {
    scan_.request_stop();
}

Task<OCRViewModel::Outcome> OCRViewModel::read(std::shared_ptr<OCRServiceProtocol> service,
                                               Image image, std::optional<QRectF> region,
                                               std::stop_token stop) {
    Outcome outcome;
    try {
        auto reading = region ? service->recognizeText(std::move(image), *region, std::move(stop))
                              : service->recognizeText(std::move(image), std::move(stop));
        outcome.results = co_await reading;
        if (outcome.results.empty())
            outcome.failure = OCRError(OCRError::Case::noTextFound).errorDescription();
    } catch (const Cancelled&) {
        outcome.isCancelled = true;
    } catch (const OCRError& error) {
        outcome.failure = error.errorDescription();
    } catch (const std::exception& error) {
        outcome.failure = Kestrio::tr("OCR failed: %1").arg(describeFailure(error));
    }
    co_return outcome;
}

Task<> OCRViewModel::scan(Image image) {
    if (isScanning()) co_return;
    const QPointer<OCRViewModel> self(this);
    const int generation = ++scanGeneration_;
    scan_ = std::stop_source();
    set_isScanning(true);
    set_errorMessage({});
    set_successMessage({});
    auto reading = read(service_, std::move(image), selectedRegion(), scan_.get_token());
    Outcome outcome = co_await reading;
    // One that was ended has no say any more.
    if (!self || generation != scanGeneration_) co_return;
    set_isScanning(false);
    if (outcome.isCancelled) co_return;
    if (outcome.failure.isEmpty()) {
        show(std::move(outcome.results));
    } else {
        show({});
        report(outcome.failure);
    }
}

void OCRViewModel::show(std::vector<OCRResultWithConfidence> found) {
    std::vector<OCRRegion> regions;
    regions.reserve(found.size());
    for (const OCRResultWithConfidence& result : found)
        regions.push_back({QUuid::createUuid(), result.bounds, result.text, false});
    const int count = int(found.size());
    translation_.reset(found);
    set_results(std::move(found));
    set_highlightedRegions(std::move(regions));
    set_showResultsPanel(count > 0);
    if (count > 0) set_successMessage(Kestrio::tr("Found %n blocks of text", nullptr, count));
}

void OCRViewModel::cancelScan() {
    if (!isScanning()) return;
    ++scanGeneration_;
    scan_.request_stop();
    set_isScanning(false);
}

void OCRViewModel::clear() {
    cancelScan();
    set_selectedRegion(std::nullopt);
    set_isRegionSelectionMode(false);
    if (!results().empty()) show({});
}

int OCRViewModel::regionAt(const QPointF& place) const {
    int found = -1;
    double area = 0;
    for (std::size_t index = 0; index < highlightedRegions().size(); ++index) {
        const QRectF& bounds = highlightedRegions()[index].bounds;
        const double own = bounds.width() * bounds.height();
        if (!bounds.contains(place) || (found >= 0 && own >= area)) continue;
        found = int(index);
        area = own;
    }
    return found;
}

const OCRResultWithConfidence* OCRViewModel::resultAt(int index) const {
    return index >= 0 && index < int(results().size()) ? &results()[std::size_t(index)] : nullptr;
}

void OCRViewModel::copyRegion(int index) {
    const OCRResultWithConfidence* const result = resultAt(index);
    if (!result) return;
    const QString text = result->text;
    std::vector<OCRRegion> regions = highlightedRegions();
    for (std::size_t each = 0; each < regions.size(); ++each)
        regions[each].isSelected = int(each) == index;
    set_highlightedRegions(std::move(regions));
    copy(text, Kestrio::tr("Copied to clipboard"));
}

void OCRViewModel::copyAll() {
    QStringList texts;
    for (const OCRResultWithConfidence& result : results())
        texts << result.text;
    if (!texts.isEmpty()) copy(texts.join(u'\n'), Kestrio::tr("Copied all text to clipboard"));
}

void OCRViewModel::copyTranslation(int index) {
    const OCRResultWithConfidence* const result = resultAt(index);
    const auto text = result ? translation_.state(result->id).targetText : std::nullopt;
    if (text) copy(*text, Kestrio::tr("Copied translation to clipboard"));
}

void OCRViewModel::copyAllTranslations() {
    const QString texts = translation_.allTranslations();
    if (!texts.isEmpty()) copy(texts, Kestrio::tr("Copied all translations to clipboard"));
}

// A message that comes again is shown again.
void OCRViewModel::copy(const QString& text, const QString& message) {
    if (!pasteboard_ || !pasteboard_->writeText(text)) {
        report(Kestrio::tr("The clipboard took nothing"));
        return;
    }
    set_successMessage({});
    set_successMessage(message);
}

void OCRViewModel::report(const QString& error) {
    set_errorMessage({});
    set_errorMessage(error);
}

}  // namespace kestrio
