#pragma once

#include "platform/Translator.h"

namespace kestrio {

/// One direction that an installed language pair can translate.
struct ApertiumMode {
    QString name;  ///< as the program takes it, as in "eng-spa"
    LanguagePair pair;

    bool operator==(const ApertiumMode&) const = default;
};

/// What the names of files of modes end in.
inline const QString modeEnding = QStringLiteral(".mode");

/// The BCP 47 identifier of a language as the engine names it, by two or three letters and a
/// variant: "eng" is "en", "eng_US" "en-US". Empty for what is no such name.
QString identifierOfApertium(const QString& name);

/// The mode of a file name as in "eng-spa.mode"; nothing where it is none between two languages.
std::optional<ApertiumMode> modeOf(const QString& fileName);

/// The modes of a folder, by name; empty where there is none. Reads the folder.
std::vector<ApertiumMode> modesIn(const QString& folder);

/// The mode that translates the pair: one of just these languages, else one of their main
/// languages.
std::optional<ApertiumMode> modeFor(const LanguagePair& pair,
                                    const std::vector<ApertiumMode>& modes);

/// A text as the engine reads it, ended so that it answers at once.
QByteArray apertiumInput(const QString& text);
/// The text of an answer, which is without its end.
QString apertiumText(const QByteArray& answer);
/// What ends input and answers.
inline constexpr char apertiumEnd = '\0';

}  // namespace kestrio
