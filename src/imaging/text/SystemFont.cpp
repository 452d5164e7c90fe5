#include "imaging/text/SystemFont.h"

#include <QFontDatabase>
#include <QStringList>
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

const QString& emojiFamily() {
    static const QString family = QStringLiteral("Noto Color Emoji");
    return family;
}

// Coverage without colour fringes: the picture is not shown on one known kind of screen.
QFont grey(QFont font) {
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

}  // namespace

QFont systemFont(double size, QFont::Weight weight) {
    return unhinted(QFont(systemFamily(), -1, weight), size);
}

QFont fontOrSystemFont(const QString& family, double size) {
    if (!family.isEmpty() && QFontDatabase::hasFamily(family)) return unhinted(QFont(family), size);
    return systemFont(size, QFont::Medium);
}

QFont writingFont(const QString& family, double size, QFont::Weight weight) {
    const bool isInstalled = !family.isEmpty() && QFontDatabase::hasFamily(family);
    QFont font(QStringList{isInstalled ? family : systemFamily(), emojiFamily()}, -1, weight);
    return grey(unhinted(font, size));
}

QFont emojiFont(double size) {
    return grey(unhinted(QFont(QStringList{emojiFamily(), systemFamily()}), size));
}

}  // namespace kestrio
