#include "app/language/Translations.h"

#include "core/UserDefaults.h"

#include <QFile>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace kestrio {

namespace {

const QString tables = QStringLiteral(":/kestrio/translations");

// Leaves the application as it is where there is no such table.
QString install(QCoreApplication& application, const QLocale& wanted, const QString& name,
                const QString& folder) {
    auto* translator = new QTranslator(&application);
    if (translator->load(wanted, name, QStringLiteral("_"), folder) &&
        QCoreApplication::installTranslator(translator)) {
        return translator->language();
    }
    delete translator;
    return {};
}

// Shows what the windows look like in a language that is read from the right, of which there is no
// table yet.
bool isMirroringForced() {
    return !qEnvironmentVariableIsEmpty("KESTRIO_MIRRORED");
}

}  // namespace

bool isTranslated(AppLanguage language) {
    const auto code = languageCode(language);
    return !code || QFile::exists(tables + QStringLiteral("/kestrio_%1.qm").arg(*code));
}

void installTranslations(QCoreApplication& application, const UserDefaults& defaults) {
    const auto chosen = defaults.stringArray(languageKey());
    const bool isChosen = chosen && !chosen->isEmpty();
    const QLocale wanted = isChosen ? QLocale(chosen->front()) : QLocale::system();
    if (isChosen) QLocale::setDefault(wanted);
    const QString name = QStringLiteral("kestrio");
    // The table that is installed last is asked first. The English one knows the plurals.
    install(application, QLocale(QLocale::English), name, tables);
    const QString found = install(application, wanted, name, tables);
    const QLocale language = found.isEmpty() ? QLocale(QLocale::English) : QLocale(found);
    install(application, language, QStringLiteral("qtbase"),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (qobject_cast<QGuiApplication*>(&application)) {
        QGuiApplication::setLayoutDirection(isMirroringForced() ? Qt::RightToLeft
                                                                : language.textDirection());
    }
}

}  // namespace kestrio
