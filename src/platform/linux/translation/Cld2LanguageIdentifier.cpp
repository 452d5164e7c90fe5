#include "platform/linux/translation/Cld2LanguageIdentifier.h"

#include <cld2/public/compact_lang_det.h>
#include <cld2/public/encodings.h>
#include <algorithm>
#include <utility>

namespace kestrio {

namespace {

// What the detector calls by withdrawn or by too broad a code.
QString identifierOf(CLD2::Language language) {
    const QString code = QString::fromLatin1(CLD2::LanguageCode(language));
    constexpr std::pair<const char*, const char*> others[] = {
        {"iw", "he"}, {"jw", "jv"}, {"no", "nb"}, {"zh", "zh-Hans"}, {"mo", "ro"}};
    for (const auto& [from, to] : others)
        if (code == QLatin1String(from)) return QString::fromLatin1(to);
    return code;
}

}  // namespace

std::optional<LanguageHypothesis> Cld2LanguageIdentifier::identify(const QString& text) const {
    const QByteArray bytes = text.toUtf8();
    const CLD2::CLDHints noHints = {nullptr, nullptr, CLD2::UNKNOWN_ENCODING,
                                    CLD2::UNKNOWN_LANGUAGE};
    constexpr int best = 3;
    CLD2::Language languages[best];
    int percents[best];
    double scores[best];
    int textBytes = 0;
    bool isReliable = false;
    // Lines of a picture are short, about which the detector says nothing unless asked to guess.
    const CLD2::Language found = CLD2::ExtDetectLanguageSummary(
        bytes.constData(), int(bytes.size()), true, &noHints, CLD2::kCLDFlagBestEffort, languages,
        percents, scores, nullptr, &textBytes, &isReliable);
    if (found == CLD2::UNKNOWN_LANGUAGE || textBytes == 0) return std::nullopt;
    // What the detector itself would not rely on is no better than a toss.
    constexpr double greatestOfUnreliable = 0.49;
    constexpr double percent = 100;
    const double share = percents[0] / percent;
    return LanguageHypothesis{identifierOf(found),
                              isReliable ? share : std::min(share, greatestOfUnreliable)};
}

}  // namespace kestrio
