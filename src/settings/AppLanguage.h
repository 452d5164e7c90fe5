#pragma once

#include "core/EnumTable.h"

#include <optional>

namespace kestrio {

/// The language of the user interface. The raw string is also the locale code, but for `system`.
enum class AppLanguage { system, en, zhHans, ja, ko, es, fr, de, ptPT, it, ru, ar };

inline constexpr EnumTable<AppLanguage, 12> appLanguages = {{
    {AppLanguage::system, "system", Kestrio::marked("System Default")},
    {AppLanguage::en, "en", "English"},
    {AppLanguage::zhHans, "zh-Hans", "简体中文"},
    {AppLanguage::ja, "ja", "日本語"},
    {AppLanguage::ko, "ko", "한국어"},
    {AppLanguage::es, "es", "Español"},
    {AppLanguage::fr, "fr", "Français"},
    {AppLanguage::de, "de", "Deutsch"},
    {AppLanguage::ptPT, "pt-PT", "Português"},
    {AppLanguage::it, "it", "Italiano"},
    {AppLanguage::ru, "ru", "Русский"},
    {AppLanguage::ar, "ar", "العربية"},
}};
constexpr const auto& enumTable(AppLanguage) {
    return appLanguages;
}

/// The name shown to users: each language in itself, only "System Default" is translated.
inline QString displayName(AppLanguage language) {
    const char* name = enumRow(language).name;
    return language == AppLanguage::system ? Kestrio::tr(name) : QString::fromUtf8(name);
}

/// The code that the language preference is set to; nothing for the system's own language.
inline std::optional<QString> languageCode(AppLanguage language) {
    if (language == AppLanguage::system) return std::nullopt;
    return rawString(language);
}

}  // namespace kestrio
