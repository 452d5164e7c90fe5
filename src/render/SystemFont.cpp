#include "render/SystemFont.h"

#include <QFontDatabase>
#include <cmath>

namespace kestrio {

namespace {

QFont unhinted(QFont font, double size) {
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(size))));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

const QString& systemFamily() {
    static const QString family = QFontDatabase::hasFamily(QStringLiteral("Inter"))
                                      ? QStringLiteral("Inter")
                                      : QStringLiteral("sans-serif");
    return family;
}

}  // namespace

QFont systemFont(double size, QFont::Weight weight) {
    return unhinted(QFont(systemFamily(), -1, weight), size);
}

QFont fontOrSystemFont(const QString& family, double size) {
    if (!family.isEmpty() && QFontDatabase::hasFamily(family)) return unhinted(QFont(family), size);
    return systemFont(size, QFont::Medium);
}

}  // namespace kestrio
