#include "platform/linux/share/DesktopFile.h"

#include <QFile>
#include <QLocale>

namespace kestrio {

namespace {

constexpr qint64 largestFile = qint64{4} * 1024 * 1024;

QString unescaped(const QString& text) {
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            plain += text[i];
            continue;
        }
        switch (text[++i].unicode()) {
            case u's':
                plain += u' ';
                break;
            case u'n':
                plain += u'\n';
                break;
            case u't':
                plain += u'\t';
                break;
            case u'r':
                plain += u'\r';
                break;
            case u'\\':
                plain += u'\\';
                break;
            // Lists and commands have escapes of their own, which are undone with these.
            default:
                (plain += u'\\') += text[i];
        }
    }
    return plain;
}

}  // namespace

DesktopFile DesktopFile::read(const QString& path) {
    DesktopFile made;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestFile) return made;
    QHash<QString, QString>* group = nullptr;
    for (const QByteArray& raw : file.readAll().split('\n')) {
        const QString line = QString::fromUtf8(raw).trimmed();
        if (line.isEmpty() || line.startsWith(u'#')) continue;
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            group = &made.groups_[line.mid(1, line.size() - 2)];
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (!group || equals <= 0) continue;
        group->insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
    }
    return made;
}

QString DesktopFile::value(const QString& group, const QString& key) const {
    return unescaped(groups_.value(group).value(key));
}

QString DesktopFile::localisedValue(const QString& group, const QString& key) const {
    const QString locale = QLocale().name();
    for (const QString& language : {locale, locale.section(u'_', 0, 0)}) {
        const QString found = value(group, QStringLiteral("%1[%2]").arg(key, language));
        if (!found.isEmpty()) return found;
    }
    return value(group, key);
}

bool DesktopFile::flag(const QString& group, const QString& key) const {
    return value(group, key) == u"true";
}

QStringList DesktopFile::list(const QString& group, const QString& key) const {
    return value(group, key).split(u';', Qt::SkipEmptyParts);
}

}  // namespace kestrio
