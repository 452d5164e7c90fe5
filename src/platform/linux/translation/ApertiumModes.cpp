#include "platform/linux/translation/ApertiumModes.h"

#include "core/LanguageTag.h"

#include <QDir>
#include <QLocale>
#include <QRegularExpression>
#include <algorithm>

namespace kestrio {

namespace {

// What stands behind each text: a sentence ends here, and then a mark that is no part of it.
constexpr char sentenceEnd[] = ".[][\n]";
constexpr QByteArrayView endMark("[][\n]");

bool isLanguageCode(const QString& code) {
    constexpr int shortest = 2;
    constexpr int longest = 3;
    return code.size() >= shortest && code.size() <= longest &&
           std::ranges::all_of(code, [](QChar letter) { return letter >= u'a' && letter <= u'z'; });
}

// The two letters of a language, where it has such a code.
QString shortCode(const QString& code) {
    // One language with several standards, which the detector tells apart.
    if (code == u"hbs") return QStringLiteral("sh");
    const QLocale::Language language = QLocale::codeToLanguage(code);
    const QString known = QLocale::languageToCode(language);
    return language == QLocale::AnyLanguage || known.isEmpty() ? code : known;
}

// A language as pairs know it.
QString pairedLanguage(const QString& identifier) {
    const QString language = mainLanguage(identifier);
    const bool isSerboCroatian = language == u"sr" || language == u"hr" || language == u"bs";
    return isSerboCroatian ? QStringLiteral("sh") : language;
}

}  // namespace

QString identifierOfApertium(const QString& name) {
    const QString code = name.section(u'_', 0, 0);
    if (!isLanguageCode(code)) return {};
    const QString variant = name.section(u'_', 1);
    return variant.isEmpty() ? shortCode(code) : shortCode(code) + u'-' + variant;
}

std::optional<ApertiumMode> modeOf(const QString& fileName) {
    if (!fileName.endsWith(modeEnding)) return std::nullopt;
    const QString name = fileName.chopped(modeEnding.size());
    const QStringList names = name.split(u'-');
    if (names.size() != 2) return std::nullopt;
    const LanguagePair pair{identifierOfApertium(names[0]), identifierOfApertium(names[1])};
    if (pair.source.isEmpty() || pair.target.isEmpty()) return std::nullopt;
    return ApertiumMode{name, pair};
}

std::vector<ApertiumMode> modesIn(const QString& folder) {
    std::vector<ApertiumMode> modes;
    for (const QString& file : QDir(folder).entryList(QDir::Files, QDir::Name))
        if (auto mode = modeOf(file)) modes.push_back(std::move(*mode));
    return modes;
}

std::optional<ApertiumMode> modeFor(const LanguagePair& pair,
                                    const std::vector<ApertiumMode>& modes) {
    auto found =
        std::ranges::find_if(modes, [&](const ApertiumMode& mode) { return mode.pair == pair; });
    if (found == modes.end()) {
        found = std::ranges::find_if(modes, [&](const ApertiumMode& mode) {
            return pairedLanguage(mode.pair.source) == pairedLanguage(pair.source) &&
                   mode.pair.target == pair.target;
        });
    }
    if (found == modes.end()) return std::nullopt;
    return *found;
}

QByteArray apertiumInput(const QString& text) {
    QByteArray input;
    for (const char byte : text.toUtf8()) {
        if (byte == apertiumEnd) continue;
        if (byte == '\n') {
            input += "[\n]";
            continue;
        }
        // These mean something to the engine.
        if (QByteArrayView("\\^$/<>{}[]@").contains(byte)) input += '\\';
        input += byte;
    }
    return input + sentenceEnd + apertiumEnd;
}

QString apertiumText(const QByteArray& answer) {
    QByteArray marked = answer;
    if (const qsizetype end = marked.lastIndexOf(endMark); end >= 0) marked.truncate(end);
    if (marked.endsWith('.')) marked.chop(1);
    QByteArray text;
    for (qsizetype at = 0; at < marked.size(); ++at) {
        const char byte = marked[at];
        if (byte == '\\' && at + 1 < marked.size()) {
            text += marked[++at];
        } else if (byte != '[' && byte != ']') {
            text += byte;
        }
    }
    // Words that the target language does without leave their spaces.
    static const QRegularExpression spaces(QStringLiteral(" {2,}"));
    return QString::fromUtf8(text).replace(spaces, QStringLiteral(" ")).trimmed();
}

}  // namespace kestrio
