#include "imaging/codecs/ExifOrientation.h"

#include <QTransform>
#include <QtEndian>

namespace kestrio {

namespace {

constexpr quint16 orientationTag = 0x0112;
constexpr quint16 shortType = 3;
constexpr int entrySize = 12;

class TiffView {
  public:
    explicit TiffView(QByteArrayView bytes) : bytes_(bytes), bigEndian_(bytes.startsWith("MM")) {}

    template <typename Integer>
    std::optional<Integer> at(quint64 offset) const {
        if (offset + sizeof(Integer) > quint64(bytes_.size())) return {};
        const char* data = bytes_.data() + offset;
        return bigEndian_ ? qFromBigEndian<Integer>(data) : qFromLittleEndian<Integer>(data);
    }

  private:
    QByteArrayView bytes_;
    bool bigEndian_;
};

}  // namespace

int exifOrientation(QByteArrayView tiff) {
    if (!tiff.startsWith("MM") && !tiff.startsWith("II")) return 1;
    const TiffView view(tiff);
    const quint64 directory = view.at<quint32>(4).value_or(0);
    const int entries = view.at<quint16>(directory).value_or(0);
    for (int index = 0; index < entries; ++index) {
        const quint64 entry = directory + 2 + quint64(index) * entrySize;
        if (view.at<quint16>(entry) != orientationTag) continue;
        const int orientation = view.at<quint16>(entry + 8).value_or(1);
        const bool known = view.at<quint16>(entry + 2) == shortType && orientation <= 8;
        return known ? std::max(orientation, 1) : 1;
    }
    return 1;
}

qint64 turnedBytes(QSize size, int orientation) {
    const bool isInPlace = orientation < 3 || orientation == 4;
    return isInPlace ? 0 : qint64(size.width()) * size.height() * 4;
}

QImage uprightBitmap(QImage bitmap, int orientation) {
    if (orientation == 2 || orientation == 5 || orientation == 7) bitmap.mirror(true, false);
    if (orientation == 4) bitmap.mirror(false, true);
    if (orientation == 3) return bitmap.transformed(QTransform().rotate(180));
    if (orientation == 5 || orientation == 8) {
        return bitmap.transformed(QTransform().rotate(270));
    }
    if (orientation == 6 || orientation == 7) return bitmap.transformed(QTransform().rotate(90));
    return bitmap;
}

}  // namespace kestrio
