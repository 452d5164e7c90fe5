#include "library/export/FileNaming.h"

#include "core/NativePath.h"

#include <QFileInfo>
#include <QLocale>
#include <QUuid>

namespace kestrio {

namespace {

const QString sequenceVariable = QStringLiteral("{sequence}");
constexpr int mostNumbers = 999999;
constexpr qsizetype longestName = 255;  // bytes, on every common file system

QString threeDigits(int number) {
    return QString::asprintf("%03d", number);
}

// The C locale, so that names are the same in every language.
QString formatted(const QDateTime& date, QStringView format) {
    return QLocale::c().toString(date, format);
}

bool isAllowed(QChar character) {
    const char16_t code = character.unicode();
    return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') ||
           (code >= '0' && code <= '9') || code == '_' || code == '-';
}

QString sanitised(QString name) {
    for (QChar& character : name) {
        if (!isAllowed(character)) character = u'_';
    }
    while (name.contains(QStringLiteral("__")))
        name.replace(QStringLiteral("__"), QStringLiteral("_"));
    const auto isTrimmed = [](QChar character) { return character == u'_' || character == u'-'; };
    while (!name.isEmpty() && isTrimmed(name.back()))
        name.chop(1);
    while (!name.isEmpty() && isTrimmed(name.front()))
        name.remove(0, 1);
    return name;
}

QString withoutDots(QString extension) {
    while (extension.startsWith(u'.'))
        extension.remove(0, 1);
    while (extension.endsWith(u'.'))
        extension.chop(1);
    return extension;
}

}  // namespace

QString formatFileName(int sequence, const QDateTime& date, const QString& pattern) {
    const QString day = formatted(date, u"yyyy-MM-dd");
    QString name = pattern;
    name.replace(QStringLiteral("{date}"), day);
    name.replace(QStringLiteral("{time}"), formatted(date, u"HH-mm-ss"));
    name.replace(sequenceVariable, threeDigits(sequence));
    name = sanitised(name);
    return name.isEmpty() ? QStringLiteral("Kestrio_%1_%2").arg(day, threeDigits(sequence)) : name;
}

QString numberedFileName(const QString& stem, const QString& suffix, int number) {
    const QString ending = (number > 1 ? u'_' + threeDigits(number) : QString()) + suffix;
    const qsizetype room = longestName - toNativePath(ending).size();
    QString fitting = stem;
    while (!fitting.isEmpty() && toNativePath(fitting).size() > room)
        fitting.chop(fitting.back().isLowSurrogate() ? 2 : 1);
    return fitting + ending;
}

QString patternFileName(int number, const QString& extension, const QDateTime& date,
                        const QString& pattern) {
    const QString ending = withoutDots(extension);
    const QString suffix = ending.isEmpty() ? QString() : u'.' + ending;
    const QString first = formatFileName(1, date, pattern);
    if (number > mostNumbers) {
        const QString unique = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
        return numberedFileName(first, u'_' + unique + suffix, 1);
    }
    if (pattern.contains(sequenceVariable)) {
        const QString name = formatFileName(number, date, pattern) + suffix;
        if (name.size() <= longestName) return name;
    }
    return numberedFileName(first, suffix, number);
}

QString uniqueFileName(const QString& directory, const QString& extension, const QDateTime& date,
                       const QString& pattern) {
    for (int number = 1;; ++number) {
        const QString name = patternFileName(number, extension, date, pattern);
        if (number <= mostNumbers && QFileInfo::exists(directory + u'/' + name)) continue;
        const QString ending = withoutDots(extension);
        return ending.isEmpty() ? name : name.chopped(ending.size() + 1);
    }
}

std::optional<ExportFormat> formatNamed(const QString& name) {
    const QString lower = name.toLower();
    if (lower == u"jpg") return ExportFormat::jpeg;
    return fromRawString<ExportFormat>(lower.toStdString());
}

}  // namespace kestrio
