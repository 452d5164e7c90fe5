#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

namespace kestrio {

/// How libpng is to write a picture that tests read back.
struct PngVariant {
    int colourType;
    int bitDepth = 8;
    bool interlaced = false;
    /// PNG_FILTER_NONE and its sisters; 0 for libpng's default.
    int filters = 0;
    /// Written as a tRNS chunk for types without alpha: the colour of the pixel at the top left.
    bool transparentColour = false;
    QByteArray iccProfile = {};
};

/// The bytes that libpng writes for a picture in RGB32 or straight ARGB32. Grey types take the
/// green channel. 16-bit samples are 257 times the picture's.
QByteArray writtenByLibpng(const QImage& bitmap, const PngVariant& variant);

}  // namespace kestrio
