#include "text/translation/OCRTranslation.h"

#include <QLocale>

namespace kestrio {

QString TranslationLanguageOption::displayName() const {
    const QLocale locale(identifier);
    const QString name = locale.nativeLanguageName();
    return name.isEmpty() ? identifier : locale.toUpper(name.left(1)) + name.mid(1);
}

}  // namespace kestrio
