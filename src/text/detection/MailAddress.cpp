#include "text/detection/Confirmers.h"
#include "text/detection/TokenEdges.h"

#include <libpsl.h>

#include <QRegularExpression>
#include <QSet>
#include <QStringList>

namespace kestrio {

namespace {

// Hosts of private networks, and those that are kept for tests and documents; the list of public
// suffixes has none of them.
const QSet<QString>& specialLabels() {
    static const QSet<QString> labels = {
        QStringLiteral("local"),    QStringLiteral("localdomain"), QStringLiteral("localhost"),
        QStringLiteral("internal"), QStringLiteral("intranet"),    QStringLiteral("lan"),
        QStringLiteral("home"),     QStringLiteral("corp"),        QStringLiteral("private"),
        QStringLiteral("example"),  QStringLiteral("test"),        QStringLiteral("invalid"),
        QStringLiteral("onion")};
    return labels;
}

// "org", "co.uk"; not the names of firms that let out subdomains.
bool isPublicSuffix(const QString& name) {
    const QByteArray lower = name.toLower().toUtf8();
    return psl_is_public_suffix2(psl_builtin(), lower.constData(),
                                 PSL_TYPE_ICANN | PSL_TYPE_NO_STAR_RULE) != 0;
}

// Pictures for dense screens are named "icon@2x.png".
bool isPictureScale(const QString& host) {
    static const QRegularExpression scale(QStringLiteral(R"(^\d+(?:\.\d+)?x\.\w+$)"));
    return scale.match(host).hasMatch();
}

bool isHost(const QString& host) {
    const QStringList labels = host.split(u'.');
    if (labels.size() < 2 || labels.contains(QString()) || isPictureScale(host)) return false;
    const QString last = labels.last();
    return isPublicSuffix(last) || specialLabels().contains(last.toLower());
}

// The host that `name` begins with. Where spaces were taken out, words of the next sentence hang on
// to a host that was complete without them.
int lengthOfHost(const QString& name) {
    if (!isHost(name)) return 0;
    const int lastDot = int(name.lastIndexOf(u'.'));
    const QString shorter = name.left(lastDot);
    const bool isLongSuffix = isPublicSuffix(name.mid(shorter.lastIndexOf(u'.') + 1));
    const bool isMeant = isLongSuffix || !isHost(shorter) || !name[lastDot + 1].isUpper();
    return isMeant ? int(name.size()) : lastDot;
}

}  // namespace

std::optional<TextRange> wholeMailAddress(const QString& text, const TextRange& hit) {
    const auto belongs = [](QChar unit) {
        return isWordUnit(unit) || QStringView(u".%+-@").contains(unit);
    };
    const auto isOutside = [](QChar unit) { return QStringView(u".%+-").contains(unit); };
    const TextRange token = trimmed(text, widened(text, hit, belongs), isOutside);
    const QString address = textOf(text, token);
    const int sign = int(address.lastIndexOf(u'@'));
    if (sign < 1) return std::nullopt;
    const int hostLength = lengthOfHost(address.mid(sign + 1));
    if (hostLength == 0) return std::nullopt;
    return rangeBetween(token.start, token.start + sign + 1 + hostLength);
}

}  // namespace kestrio
