#include "platform/KeySymbols.h"

#include "core/Localisation.h"

#include <QKeySequence>

namespace kestrio {

namespace {

struct SymbolRow {
    quint32 symbol;
    Qt::Key key;
};

// The numbers are those of X11's keysymdef.h and XF86keysym.h.
constexpr SymbolRow symbolRows[] = {
    {0xff61, Qt::Key_Print},
    {0xff15, Qt::Key_SysReq},
    {0xff13, Qt::Key_Pause},
    {0xff63, Qt::Key_Insert},
    {0xffff, Qt::Key_Delete},
    {0xff50, Qt::Key_Home},
    {0xff57, Qt::Key_End},
    {0xff55, Qt::Key_PageUp},
    {0xff56, Qt::Key_PageDown},
    {0xff67, Qt::Key_Menu},
    {0xff6a, Qt::Key_Help},
    {0xff0b, Qt::Key_Clear},
    {0xff8d, Qt::Key_Enter},
    {0x1008ff11, Qt::Key_VolumeDown},
    {0x1008ff12, Qt::Key_VolumeMute},
    {0x1008ff13, Qt::Key_VolumeUp},
    {0x1008ff14, Qt::Key_MediaPlay},
    {0x1008ff15, Qt::Key_MediaStop},
    {0x1008ff16, Qt::Key_MediaPrevious},
    {0x1008ff17, Qt::Key_MediaNext},
    {0x1008ff18, Qt::Key_HomePage},
    {0x1008ff19, Qt::Key_LaunchMail},
    {0x1008ff1b, Qt::Key_Search},
    {0x1008ff1d, Qt::Key_Calculator},
    {0x1008ff26, Qt::Key_Back},
    {0x1008ff27, Qt::Key_Forward},
    {0x1008ff2c, Qt::Key_Eject},
    {0x1008ff2d, Qt::Key_ScreenSaver},
    {0x1008ff2e, Qt::Key_WWW},
    {0x1008ff2f, Qt::Key_Sleep},
    {0x1008ff30, Qt::Key_Favorites},
    {0x1008ff5d, Qt::Key_Explorer},
    {0x1008ff81, Qt::Key_Tools},
    {0x1008ff02, Qt::Key_MonBrightnessUp},
    {0x1008ff03, Qt::Key_MonBrightnessDown},
};

constexpr quint32 symbolF13 = 0xffca, symbolF35 = 0xffe0;
constexpr quint32 firstMedia = 0x1008ff00, lastMedia = 0x1008ffff;
// Characters beyond Latin-1 are their code point above this.
constexpr quint32 unicodeBase = 0x01000000, lastUnicode = 0x0110ffff;
constexpr int firstNamedKey = Qt::Key_Escape;  // keys below it are characters

// Of the number pad, as it is without and with its lock.
constexpr quint32 firstPad = 0xff95, firstPadWithLock = 0xffaa;
constexpr QLatin1StringView padKeys("7486293150.");
constexpr QLatin1StringView padKeysWithLock("*+,-./0123456789");

std::optional<QChar> padKey(quint32 symbol) {
    const auto within = [symbol](quint32 first, QLatin1StringView keys) -> std::optional<QChar> {
        if (symbol < first || symbol >= first + keys.size()) return std::nullopt;
        return QChar(keys[symbol - first]);
    };
    if (const auto key = within(firstPad, padKeys)) return key;
    return within(firstPadWithLock, padKeysWithLock);
}

bool isLatin1(quint32 symbol) {
    return (symbol > 0x20 && symbol < 0x7f) || (symbol > 0xa0 && symbol <= 0xff);
}

std::optional<Qt::Key> keyOfSymbol(quint32 symbol) {
    for (const SymbolRow& row : symbolRows)
        if (row.symbol == symbol) return row.key;
    if (symbol >= symbolF13 && symbol <= symbolF35)
        return static_cast<Qt::Key>(Qt::Key_F13 + static_cast<int>(symbol - symbolF13));
    return std::nullopt;
}

bool isWithin(quint32 symbol, quint32 first, quint32 last) {
    return symbol >= first && symbol <= last;
}

}  // namespace

std::optional<quint32> keySymbol(Qt::Key key) {
    for (const SymbolRow& row : symbolRows)
        if (row.key == key) return row.symbol;
    if (key >= Qt::Key_F13 && key <= Qt::Key_F35)
        return symbolF13 + static_cast<quint32>(key - Qt::Key_F13);
    if (key <= Qt::Key_Space || key >= firstNamedKey) return std::nullopt;
    const char32_t character = QChar::toLower(static_cast<char32_t>(key));
    return isLatin1(character) ? character : unicodeBase + character;
}

bool isModifierSymbol(quint32 symbol) {
    constexpr quint32 noSymbol = 0, numLock = 0xff7f, modeSwitch = 0xff7e, scrollLock = 0xff14,
                      compose = 0xff20;
    for (const quint32 each : {noSymbol, numLock, modeSwitch, scrollLock, compose})
        if (symbol == each) return true;
    // Shift to Hyper, and the levels and groups of the keyboard extension.
    return isWithin(symbol, 0xffe1, 0xffee) || isWithin(symbol, 0xfe01, 0xfe13);
}

QString keySymbolName(quint32 symbol) {
    if (const auto key = keyOfSymbol(symbol)) {
        return QKeySequence(*key).toString(QKeySequence::NativeText);
    }
    if (const auto key = padKey(symbol)) return Kestrio::tr("Num %1").arg(*key);
    if (isLatin1(symbol)) return QString(QChar(static_cast<char16_t>(symbol)).toUpper());
    if (isWithin(symbol, unicodeBase, lastUnicode)) {
        const char32_t character = QChar::toUpper(static_cast<char32_t>(symbol - unicodeBase));
        return QString::fromUcs4(&character, 1);
    }
    return Kestrio::tr("Key %1").arg(symbol, 4, 16, QLatin1Char('0'));
}

bool standsAlone(int keyCode) {
    if (!isKeySymbol(keyCode)) return false;
    const quint32 symbol = symbolOfKeyCode(keyCode);
    const auto key = keyOfSymbol(symbol);
    return key == Qt::Key_Print || key == Qt::Key_SysReq || key == Qt::Key_Pause ||
           key == Qt::Key_Help || isWithin(symbol, symbolF13, symbolF35) ||
           isWithin(symbol, firstMedia, lastMedia);
}

}  // namespace kestrio
