#pragma once

#include "settings/AppLanguage.h"

#include <optional>

class QCoreApplication;

namespace kestrio {

class UserDefaults;

/// Where the settings keep the code of the language that the user chose; nothing is kept for the
/// desktop's own.
inline QString languageKey() {
    return QStringLiteral("AppleLanguages");
}

/// Whether there is a table of this language; always for `system`.
bool isTranslated(AppLanguage language);

/// Gives the application the texts of the language that the settings name, else of the first of the
/// desktop's languages that is translated, else English; Qt's own texts of that language where they
/// are installed; and the direction in which the language is read. Once for each application.
void installTranslations(QCoreApplication& application, const UserDefaults& defaults);

}  // namespace kestrio
