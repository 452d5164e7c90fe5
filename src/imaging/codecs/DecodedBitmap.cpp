#include "imaging/codecs/DecodedBitmap.h"

#include "core/Localisation.h"
#include "core/Parallel.h"
#include "core/Simd.h"

namespace kestrio {

namespace {

KESTRIO_SIMD void premultiplyRow(quint32* pixels, int count) {
    for (int x = 0; x < count; ++x) {
        const quint32 pixel = pixels[x];
        const quint32 alpha = pixel >> 24;
        // Rounded c * a / 255 in two lanes of 16 bits; the encoder's division undoes it exactly.
        quint32 redBlue = (pixel & 0xff00ff) * alpha + 0x800080;
        redBlue = ((redBlue + ((redBlue >> 8) & 0xff00ff)) >> 8) & 0xff00ff;
        quint32 green = ((pixel >> 8) & 0xff) * alpha + 0x80;
        green = (green + (green >> 8)) & 0xff00;
        pixels[x] = alpha << 24 | redBlue | green;
    }
}

QImage premultiplied(QImage bitmap) {
    uchar* bits = bitmap.bits();
    const qsizetype stride = bitmap.bytesPerLine();
    parallelBands(bitmap.height(), 64, [&](int first, int last) {
        for (int y = first; y < last; ++y) {
            premultiplyRow(reinterpret_cast<quint32*>(bits + y * stride), bitmap.width());
        }
    });
    bitmap.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    return bitmap;
}

}  // namespace

qint64 bitmapBytes(QSize size) {
    return qint64(size.width()) * size.height() * 4;
}

void checkClaimedSize(QSize claimed, const DecodeLimits& limits, qint64 workingMemory) {
    if (claimed.width() < 1 || claimed.height() < 1) {
        throw ImageLoadError::damaged(Kestrio::tr("its width or height is not positive"));
    }
    if (claimed.width() > limits.side || claimed.height() > limits.side ||
        workingMemory > limits.memory - bitmapBytes(claimed)) {
        throw ImageLoadError::tooLarge(claimed);
    }
}

QImage allocateBitmap(QSize size, QImage::Format format) {
    QImage bitmap(size, format);
    if (bitmap.isNull()) throw ImageLoadError::damaged(Kestrio::tr("there is not enough memory"));
    return bitmap;
}

QImage finishedBitmap(QImage bitmap, const QColorSpace& profile) {
    const QColorSpace srgb(QColorSpace::SRgb);
    if (profile.isValid() && profile != srgb) {
        bitmap.setColorSpace(profile);
        bitmap.convertToColorSpace(srgb);
    }
    bitmap.setColorSpace({});
    return bitmap.format() == QImage::Format_ARGB32 ? premultiplied(std::move(bitmap))
                                                    : std::move(bitmap);
}

QColorSpace colorSpaceOf(const QByteArray& iccProfile) {
    return iccProfile.isEmpty() ? QColorSpace() : QColorSpace::fromIccProfile(iccProfile);
}

}  // namespace kestrio
