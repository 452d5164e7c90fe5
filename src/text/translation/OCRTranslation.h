#pragma once

#include <QString>
#include <QUuid>
#include <optional>
#include <variant>
#include <vector>

namespace kestrio {

/// A language that text can be translated into.
struct TranslationLanguageOption {
    QString identifier;  ///< BCP 47

    /// Its name in the language of the program.
    QString displayName() const;

    bool operator==(const TranslationLanguageOption&) const = default;
};

/// How far the translation of a block is.
struct OCRTranslationStatus {
    enum class Case { idle, queued, translating, translated, failed, skippedCode, sameLanguage };

    Case which = Case::idle;
    QString message;  ///< why it failed

    bool operator==(const OCRTranslationStatus&) const = default;
};

/// A block of recognised text and its translation.
struct OCRTranslationState {
    QUuid id;
    QString sourceText;
    std::optional<QString> targetText;
    std::optional<QString> sourceLanguageIdentifier;
    std::optional<QString> targetLanguageIdentifier;
    OCRTranslationStatus status;

    bool operator==(const OCRTranslationState&) const = default;
};

/// A block that is to be translated.
struct OCRTranslationRequest {
    QUuid id;
    QString sourceText;
};

/// What became of one block.
struct OCRTranslationEvent {
    struct Translated {
        QString targetText;
        QString sourceLanguageIdentifier;
        QString targetLanguageIdentifier;
    };
    struct SameLanguage {
        QString languageIdentifier;
    };
    struct Failed {
        QString message;
    };

    QUuid id;
    std::variant<Translated, SameLanguage, Failed> outcome;
};

}  // namespace kestrio
