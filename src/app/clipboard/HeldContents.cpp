#include "app/clipboard/HeldContents.h"

#include <QDataStream>
#include <QIODevice>

namespace kestrio {

namespace {

constexpr quint32 mark = 0x4b634831;

}  // namespace

QByteArray HeldContents::encoded() const {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << mark << owner << contents.png << contents.files << contents.text;
    return bytes;
}

std::optional<HeldContents> HeldContents::decoded(const QByteArray& bytes) {
    QDataStream stream(bytes);
    quint32 found = 0;
    stream >> found;
    if (found != mark) return std::nullopt;
    HeldContents held;
    stream >> held.owner >> held.contents.png >> held.contents.files >> held.contents.text;
    if (stream.status() != QDataStream::Ok || !stream.atEnd()) return std::nullopt;
    return held;
}

}  // namespace kestrio
