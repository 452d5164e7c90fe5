#pragma once

#include <QImage>

namespace kestrio {

/// Moves every channel away from or towards mid grey (0.5), in place: 1 changes nothing, 0 makes
/// grey.
void adjustContrast(QImage& bitmap, double factor);

/// Saturates in place, dull colours more than vivid ones: the distance from the luma grows by
/// `amount` times what the colour's span of channels leaves of the full span. 0 changes nothing;
/// greys stay grey.
void adjustVibrance(QImage& bitmap, double amount);

/// Two lumas, 0 to 1, not premultiplied.
struct ToneRange {
    double black = 0;
    double white = 1;

    bool operator==(const ToneRange&) const = default;
};

/// The range that stretches a picture's lumas to the full one: it leaves out half a percent of the
/// pixels at either end and spans half of the full range at least. The full range for pictures that
/// are nearly flat. Pixels that are less than half opaque do not count.
ToneRange usedTones(const QImage& bitmap);

/// Maps `tones` to the full range in place, all channels by the same straight line, so that greys
/// stay grey.
void stretchTones(QImage& bitmap, ToneRange tones);

}  // namespace kestrio
