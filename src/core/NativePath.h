#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace kestrio {

/// The name of a file as text. To the system names are bytes, mostly UTF-8 but not always: each
/// byte that is not UTF-8 stands as one private character (U+10EE80 to U+10EEFF), so that every
/// name survives as a QString, in JSON and on its way to another process.
QString fromNativePath(QByteArrayView bytes);

/// The bytes of a name that fromNativePath() made, or of any other text as UTF-8.
QByteArray toNativePath(const QString& path);

/// A name or a sentence with names as a terminal or a label may show it: control characters, which
/// would move a terminal's cursor or worse, and bytes that are no text become U+FFFD.
QString printableText(const QString& text);

}  // namespace kestrio
