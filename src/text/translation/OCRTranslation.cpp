#include "text/translation/OCRTranslation.h"

#include <unicode/uloc.h>
#include <QLocale>
#include <array>

namespace kestrio {

QString TranslationLanguageOption::displayName() const {
    constexpr int longest = 200;  // UTF-16 units
    std::array<char, ULOC_FULLNAME_CAPACITY> locale{};
    std::array<char16_t, longest> name{};
    UErrorCode status = U_ZERO_ERROR;
    uloc_forLanguageTag(identifier.toLatin1().constData(), locale.data(), int(locale.size()),
                        nullptr, &status);
    // Without a language the texts are English.
    const bool hasLanguage = QLocale().language() != QLocale::C;
    const QByteArray reader = hasLanguage ? QLocale().name().toLatin1() : QByteArray("en");
    const int length = uloc_getDisplayName(locale.data(), reader.constData(), name.data(),
                                           int(name.size()), &status);
    if (U_FAILURE(status) || length <= 0) return identifier;
    const QString text = QString::fromUtf16(name.data(), length);
    // As it stands in a list; some languages write them small within a sentence.
    return QLocale().toUpper(text.left(1)) + text.mid(1);
}

}  // namespace kestrio
