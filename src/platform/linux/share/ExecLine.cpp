#include "platform/linux/share/ExecLine.h"

#include <QUrl>
#include <optional>

namespace kestrio {

namespace {

/// The words of a command, whose quotes may hold blanks and escapes.
std::optional<QStringList> wordsOf(const QString& exec) {
    QStringList words;
    QString word;
    bool isQuoted = false, isWord = false;
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar each = exec[i];
        if (each == u'"') {
            isQuoted = !isQuoted;
            isWord = true;
        } else if (each == u'\\' && isQuoted && i + 1 < exec.size()) {
            word += exec[++i];
        } else if (each.isSpace() && !isQuoted) {
            if (isWord) words << word;
            word.clear();
            isWord = false;
        } else {
            word += each;
            isWord = true;
        }
    }
    if (isQuoted) return std::nullopt;
    if (isWord) words << word;
    return words;
}

/// A word with its field codes replaced. Those that stand for nothing here are dropped.
QString filled(const QString& word, const QString& file, const QString& name, bool& takesFile) {
    QString made;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (word[i] != u'%' || i + 1 == word.size()) {
            made += word[i];
            continue;
        }
        switch (word[++i].unicode()) {
            case u'%':
                made += u'%';
                break;
            case u'c':
                made += name;
                break;
            case u'f':
            case u'F':
                made += file;
                takesFile = true;
                break;
            case u'u':
            case u'U':
                made += QString::fromLatin1(QUrl::fromLocalFile(file).toEncoded());
                takesFile = true;
                break;
            default:
                break;
        }
    }
    return made;
}

}  // namespace

QStringList commandFor(const QString& exec, const QString& file, const QString& name) {
    const auto words = wordsOf(exec);
    if (!words) return {};
    QStringList command;
    bool takesFile = false;
    for (const QString& word : *words) {
        const QString made = filled(word, file, name, takesFile);
        if (!made.isEmpty() || !word.startsWith(u'%')) command << made;
    }
    if (!command.isEmpty() && !takesFile) command << file;
    return command;
}

}  // namespace kestrio
