#include "editor/text/OCRTranslationModel.h"

#include "core/LanguageTag.h"

#include <QLocale>
#include <QPointer>
#include <algorithm>

namespace kestrio {

namespace {

using Case = OCRTranslationStatus::Case;

// The chosen language where it is offered, else that of the program, else none.
QString initialTarget(const QString& last, const std::vector<TranslationLanguageOption>& options) {
    const auto offered = [&](const QString& identifier) {
        return std::ranges::find(options, identifier, &TranslationLanguageOption::identifier) !=
               options.end();
    };
    if (offered(last)) return last;
    const QString own = mainLanguage(QLocale().bcp47Name());
    return offered(own) ? own : QString();
}

bool hasOutcome(const OCRTranslationState& state) {
    return state.status.which == Case::translated || state.status.which == Case::sameLanguage;
}

}  // namespace

OCRTranslationModel::OCRTranslationModel(const TextServices& services)
    : service_(services.translation), settings_(services.settings) {}

OCRTranslationModel::~OCRTranslationModel() {
    run_.request_stop();
    loading_.request_stop();
}

void OCRTranslationModel::reset(const std::vector<OCRResultWithConfidence>& results) {
    endRun();
    set_translationRequestGeneration(translationRequestGeneration() + 1);
    results_ = results;
    OCRTranslations fresh;
    for (const OCRResultWithConfidence& result : results) {
        OCRTranslationState state;
        state.id = result.id;
        state.sourceText = result.text;
        state.status.which = result.isCodeBlock ? Case::skippedCode : Case::idle;
        fresh.insert(result.id, state);
    }
    set_translations(std::move(fresh));
}

Task<> OCRTranslationModel::loadLanguages() {
    if (hasLoaded_ || isLoadingLanguages()) co_return;
    const QPointer<OCRTranslationModel> self(this);
    std::vector<TranslationLanguageOption> options;
    if (service_) {
        set_isLoadingLanguages(true);
        try {
            auto loading = service_->supportedLanguages(loading_.get_token());
            options = co_await loading;
        } catch (const Cancelled&) {
            co_return;
        } catch (const std::exception& error) {
            // A folder that cannot be read offers nothing, as one that is not there.
            qWarning("%s", error.what());
        }
        if (!self) co_return;
    }
    hasLoaded_ = true;
    const auto last =
        settings_ ? settings_->load().lastTranslationTargetLanguageIdentifier : std::nullopt;
    if (selectedTargetLanguageIdentifier().isEmpty())
        set_selectedTargetLanguageIdentifier(initialTarget(last.value_or(QString()), options));
    set_supportedTranslationLanguages(std::move(options));
    set_isLoadingLanguages(false);
}

void OCRTranslationModel::chooseTarget(const QString& identifier) {
    if (identifier == selectedTargetLanguageIdentifier()) return;
    set_selectedTargetLanguageIdentifier(identifier);
    reset(std::vector(results_));
    if (!settings_) return;
    AppSettings settings = settings_->load();
    settings.lastTranslationTargetLanguageIdentifier = identifier;
    settings_->save(settings);
}

void OCRTranslationModel::translateAll() {
    std::vector<OCRResultWithConfidence> candidates;
    std::ranges::copy_if(results_, std::back_inserter(candidates),
                         [](const auto& result) { return !result.isCodeBlock; });
    start(candidates);
}

void OCRTranslationModel::translateAnyway(const QUuid& id) {
    std::vector<OCRResultWithConfidence> candidates;
    std::ranges::copy_if(results_, std::back_inserter(candidates), [&](const auto& result) {
        return result.id == id || (!result.isCodeBlock && !hasOutcome(state(result.id)));
    });
    start(candidates);
}

void OCRTranslationModel::start(const std::vector<OCRResultWithConfidence>& candidates) {
    endRun();
    const int generation = translationRequestGeneration() + 1;
    set_translationRequestGeneration(generation);
    if (candidates.empty() || !service_) return;
    std::vector<OCRTranslationRequest> requests;
    std::vector<QUuid> ids;
    for (const OCRResultWithConfidence& candidate : candidates) {
        requests.push_back({candidate.id, candidate.text});
        ids.push_back(candidate.id);
        pendingTranslationBlockIDs_.insert(candidate.id);
    }
    change(ids, [](OCRTranslationState& state) { state.status = {Case::queued, {}}; });
    set_isTranslating(true);
    run_ = std::stop_source();
    launch(run(std::move(requests), generation, run_.get_token()), this);
}

Task<> OCRTranslationModel::run(std::vector<OCRTranslationRequest> requests, int generation,
                                std::stop_token stop) {
    const QPointer<OCRTranslationModel> self(this);
    const auto service = service_;
    const QString target = selectedTargetLanguageIdentifier();
    // Views show what is queued before anything is answered.
    const auto turn = sleepFor(std::chrono::milliseconds(0), stop);
    co_await turn;
    if (!self) co_return;
    activeTranslationGeneration_ = generation;
    const std::vector<QUuid> ids(pendingTranslationBlockIDs_.begin(),
                                 pendingTranslationBlockIDs_.end());
    change(ids, [](OCRTranslationState& state) { state.status = {Case::translating, {}}; });
    const auto deliver = [self, generation](const OCRTranslationEvent& event) {
        if (self) self->take(event, generation);
    };
    auto translating = service->translate(std::move(requests), target, deliver, stop);
    co_await translating;
    if (self && generation == activeTranslationGeneration_) endRun();
}

void OCRTranslationModel::take(const OCRTranslationEvent& event, int generation) {
    if (generation != activeTranslationGeneration_ ||
        !pendingTranslationBlockIDs_.remove(event.id)) {
        return;
    }
    change({event.id}, [&event](OCRTranslationState& state) {
        using Event = OCRTranslationEvent;
        if (const auto* done = std::get_if<Event::Translated>(&event.outcome)) {
            state.targetText = done->targetText;
            state.sourceLanguageIdentifier = done->sourceLanguageIdentifier;
            state.targetLanguageIdentifier = done->targetLanguageIdentifier;
            state.status = {Case::translated, {}};
        } else if (const auto* same = std::get_if<Event::SameLanguage>(&event.outcome)) {
            state.sourceLanguageIdentifier = same->languageIdentifier;
            state.status = {Case::sameLanguage, {}};
        } else {
            state.status = {Case::failed, std::get<Event::Failed>(event.outcome).message};
        }
    });
    if (pendingTranslationBlockIDs_.isEmpty()) set_isTranslating(false);
}

void OCRTranslationModel::cancel() {
    if (!isTranslating()) return;
    set_translationRequestGeneration(translationRequestGeneration() + 1);
    endRun();
}

// What was not answered is as if it had not been asked for.
void OCRTranslationModel::endRun() {
    run_.request_stop();
    activeTranslationGeneration_ = 0;
    const QSet<QUuid> unanswered = std::exchange(pendingTranslationBlockIDs_, {});
    QSet<QUuid> code;
    for (const OCRResultWithConfidence& result : results_)
        if (result.isCodeBlock) code.insert(result.id);
    change({unanswered.begin(), unanswered.end()}, [&code](OCRTranslationState& state) {
        const Case before = code.contains(state.id) ? Case::skippedCode : Case::idle;
        state.status = {state.targetText ? Case::translated : before, {}};
    });
    set_isTranslating(false);
}

// All at once, since each change copies the states of all blocks.
void OCRTranslationModel::change(const std::vector<QUuid>& ids, const Edit& edit) {
    OCRTranslations changed = translations();
    for (const QUuid& id : ids)
        if (const auto state = changed.find(id); state != changed.end()) edit(*state);
    set_translations(std::move(changed));
}

OCRTranslationProgress OCRTranslationModel::progress() const {
    using enum OCRTranslationProgress;
    if (isLoadingLanguages()) return loadingLanguages;
    if (supportedTranslationLanguages().empty()) return unavailable;
    if (isTranslating()) return translating;
    const auto count = [this](Case which) {
        return std::ranges::count_if(
            translations(), [which](const auto& state) { return state.status.which == which; });
    };
    if (count(Case::translated) + count(Case::sameLanguage) > 0) return complete;
    return count(Case::failed) > 0 ? failed : ready;
}

QString OCRTranslationModel::allTranslations() const {
    QStringList texts;
    for (const OCRResultWithConfidence& result : results_)
        if (const auto text = state(result.id).targetText) texts << *text;
    return texts.join(u'\n');
}

}  // namespace kestrio
