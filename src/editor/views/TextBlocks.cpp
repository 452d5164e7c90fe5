#include "editor/views/TextBlocks.h"

#include "core/Localisation.h"
#include "text/recognition/CodeDetection.h"

namespace kestrio {

namespace {

// As its users write it; names of languages are not translated.
QString languageName(const QString& code) {
    constexpr std::pair<const char*, const char*> names[] = {{"swift", "Swift"},
                                                             {"python", "Python"},
                                                             {"javascript", "JavaScript"},
                                                             {"typescript", "TypeScript"},
                                                             {"java", "Java"},
                                                             {"c", "C"},
                                                             {"cpp", "C++"},
                                                             {"rust", "Rust"},
                                                             {"go", "Go"}};
    for (const auto& [known, name] : names)
        if (code == QLatin1String(known)) return QString::fromLatin1(name);
    return code;
}

}  // namespace

QString translationStatusText(const OCRTranslationStatus& status) {
    switch (status.which) {
        case OCRTranslationStatus::Case::idle:
        case OCRTranslationStatus::Case::translated:
            return {};
        case OCRTranslationStatus::Case::queued:
            return Kestrio::tr("Waiting to translate");
        case OCRTranslationStatus::Case::translating:
            return Kestrio::tr("Translating…");
        case OCRTranslationStatus::Case::failed:
            return status.message.isEmpty() ? Kestrio::tr("Translation failed") : status.message;
        case OCRTranslationStatus::Case::skippedCode:
            return Kestrio::tr("Code block skipped");
        case OCRTranslationStatus::Case::sameLanguage:
            return Kestrio::tr("Already in the target language");
    }
    return {};
}

TextBlocks::TextBlocks(OCRViewModel& text, QObject* parent)
    : QAbstractListModel(parent), text_(text) {
    connect(&text, &OCRViewModel::resultsChanged, this, [this] {
        beginResetModel();
        endResetModel();
    });
    connect(&text, &OCRViewModel::highlightedRegionsChanged, this, &TextBlocks::refreshRows);
    connect(&text.translation(), &OCRTranslationModel::translationsChanged, this,
            &TextBlocks::refreshRows);
    connect(&text.translation(), &OCRTranslationModel::supportedTranslationLanguagesChanged, this,
            &TextBlocks::refreshRows);
}

// A view asks for the rows that it shows and no others.
void TextBlocks::refreshRows() {
    if (rowCount() > 0) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

int TextBlocks::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(text_.results().size());
}

QHash<int, QByteArray> TextBlocks::roleNames() const {
    return {{content, "content"},
            {isCode, "isCode"},
            {codeLanguage, "codeLanguage"},
            {isSelected, "isSelected"},
            {translated, "translated"},
            {statusText, "statusText"},
            {canTranslateAnyway, "canTranslateAnyway"}};
}

QVariant TextBlocks::data(const QModelIndex& index, int role) const {
    const auto row = std::size_t(index.row());
    if (!index.isValid() || row >= text_.results().size()) return {};
    const OCRResultWithConfidence& result = text_.results()[row];
    const OCRTranslationState state = text_.translation().state(result.id);
    const bool isSkipped = state.status.which == OCRTranslationStatus::Case::skippedCode;
    const bool canTranslate = !text_.translation().supportedTranslationLanguages().empty();
    switch (role) {
        case content:
            return result.text;
        case isCode:
            return result.isCodeBlock;
        case codeLanguage:
            return languageName(detectLanguage(result.text).value_or(QString()));
        case isSelected:
            return row < text_.highlightedRegions().size() &&
                   text_.highlightedRegions()[row].isSelected;
        case translated:
            return state.targetText.value_or(QString());
        case statusText:
            // Where nothing can be translated, nothing was skipped either.
            return isSkipped && !canTranslate ? QString() : translationStatusText(state.status);
        case canTranslateAnyway:
            return isSkipped && canTranslate;
        default:
            return {};
    }
}

}  // namespace kestrio
