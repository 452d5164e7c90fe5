#pragma once

#include "core/Published.h"
#include "editor/text/TextServices.h"
#include "text/recognition/OCRResult.h"

#include <QHash>
#include <QSet>

namespace kestrio {

using OCRTranslations = QHash<QUuid, OCRTranslationState>;

/// How far the translation as a whole is.
enum class OCRTranslationProgress {
    loadingLanguages,
    unavailable,  ///< no language can be translated into
    ready,
    translating,
    complete,
    failed,  ///< of no block there is a translation
};

/// The translation of the blocks that were read in a document's picture. What an earlier run still
/// delivers changes nothing. Main thread.
class OCRTranslationModel : public QObject {
    Q_OBJECT
    /// One for each block, by its id.
    PUBLISHED(OCRTranslations, translations, {})
    PUBLISHED(std::vector<TranslationLanguageOption>, supportedTranslationLanguages, {})
    PUBLISHED(bool, isLoadingLanguages, false)
    /// Empty where none is chosen.
    PUBLISHED(QString, selectedTargetLanguageIdentifier, {})
    PUBLISHED(bool, isTranslating, false)
    PUBLISHED(int, translationRequestGeneration, 0)

  public:
    explicit OCRTranslationModel(const TextServices& services);
    ~OCRTranslationModel() override;

    /// Other blocks, of which nothing is translated yet.
    void reset(const std::vector<OCRResultWithConfidence>& results);

    /// Finds out what can be translated into, and chooses the language that was chosen last, or
    /// that of the program. Once; afterwards it does nothing.
    Task<> loadLanguages();
    /// Chooses a language and keeps the choice for later documents; what was translated into
    /// another one goes.
    void chooseTarget(const QString& identifier);

    /// Translates every block that is no code.
    void translateAll();
    /// The same for blocks without a translation, and a block that was taken for code.
    void translateAnyway(const QUuid& id);
    void cancel();

    OCRTranslationProgress progress() const;
    OCRTranslationState state(const QUuid& id) const { return translations().value(id); }
    /// The translations in the order of the blocks, a line each.
    QString allTranslations() const;

  private:
    void start(const std::vector<OCRResultWithConfidence>& candidates);
    Task<> run(std::vector<OCRTranslationRequest> requests, int generation, std::stop_token stop);
    void take(const OCRTranslationEvent& event, int generation);
    void endRun();
    using Edit = std::function<void(OCRTranslationState&)>;
    void change(const std::vector<QUuid>& ids, const Edit& edit);

    const std::shared_ptr<OCRTranslationServiceProtocol> service_;
    const std::shared_ptr<AppSettingsServiceProtocol> settings_;
    std::vector<OCRResultWithConfidence> results_;
    QSet<QUuid> pendingTranslationBlockIDs_;
    int activeTranslationGeneration_ = 0;
    std::stop_source run_;
    std::stop_source loading_;
    bool hasLoaded_ = false;
};

}  // namespace kestrio
