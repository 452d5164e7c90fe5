#pragma once

#include <QImage>

namespace kestrio {

/// A ramp with a coarse pattern and a little noise, the same at every call: every PNG filter and
/// both literal and repeated bytes occur in it. Straight alpha runs through all values for
/// Format_ARGB32_Premultiplied.
inline QImage testPicture(int width, int height, QImage::Format format) {
    QImage bitmap(width, height, QImage::Format_ARGB32);
    quint32 noise = 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            noise = noise * 1664525u + 1013904223u;
            const bool patterned = (x / 16 + y / 16) % 3 == 0;
            const int grain = patterned ? 0 : static_cast<int>(noise >> 30);
            const int alpha = format == QImage::Format_RGB32 ? 255 : (x * 7 + y * 13) & 255;
            bitmap.setPixel(x, y,
                            qRgba((x * 2 + grain) & 255, patterned ? 40 : (y * 3) & 255,
                                  (x + y + grain) & 255, alpha));
        }
    }
    return bitmap.convertToFormat(format);
}

/// The largest difference of any channel; 255 where sizes differ.
inline int largestDifference(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return 255;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        const uchar* left = a.constScanLine(y);
        const uchar* right = b.constScanLine(y);
        for (int i = 0; i < 4 * a.width(); ++i) {
            largest = std::max(largest, std::abs(left[i] - right[i]));
        }
    }
    return largest;
}

}  // namespace kestrio
