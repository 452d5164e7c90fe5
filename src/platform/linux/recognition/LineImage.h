#pragma once

#include "platform/linux/recognition/InkPlane.h"

#include <vector>

namespace kestrio {

/// One line of text as ink, and where its ink stands.
struct LineImage {
    QRect area;      ///< of the picture; the plane shows all of it
    GrayPlane ink;   ///< 0 is ink, 255 ground
    int top = 0;     ///< the first row of the plane with ink of this line
    int bottom = 0;  ///< behind its last row
    int left = 0;    ///< the first column
    int right = 0;   ///< behind the last

    int inkHeight() const { return bottom - top; }
    bool isEmpty() const { return bottom <= top || right <= left; }
};

/// Values of the plane below which a pixel counts as ink: within a character, and at all, also
/// where words of a line are paler than others.
inline constexpr int inkLimit = 150;
inline constexpr int paleInkLimit = 205;

/// The line in an area that was found roughly: what belongs to the lines above and below is
/// recognised by the empty rows between. Empty where nothing in the area stands out.
LineImage lineImage(const QImage& picture, QRect area);

/// Whether each column of the plane has ink below this value in the line's rows.
std::vector<bool> inkColumns(const LineImage& line, int limit = inkLimit);

/// A part of a line in the height that the reader takes.
struct LineStrip {
    GrayPlane pixels;
    double left = 0;   ///< column of the line's plane where it begins
    double scale = 1;  ///< pixels of the strip for one of the plane, across
};

/// The usual distance from one character to the next, in columns, as far as gaps tell; characters
/// that touch count as one.
double characterPitch(const LineImage& line);

/// Pixels of a strip of this height for one of the line's plane.
double stripScale(const LineImage& line, int height);

struct StripShape {
    int height = 48;     ///< pixels
    int widest = 960;    ///< pixels, about
    double stretch = 1;  ///< of the width, relative to that of the line in this height
};

/// The line in strips of this shape, cut where it has gaps.
std::vector<LineStrip> lineStrips(const LineImage& line, const StripShape& shape);

}  // namespace kestrio
