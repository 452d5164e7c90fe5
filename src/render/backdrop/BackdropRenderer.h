#pragma once

#include "core/SerialQueue.h"
#include "imaging/codecs/DecodedPictures.h"
#include "render/style/BackdropSettings.h"

#include <QImage>

namespace kestrio {

/// Draws what stands behind a screenshot. Filters run one at a time on the queue that it is given;
/// none of this may be called from that queue.
class BackdropRenderer {
  public:
    explicit BackdropRenderer(SerialQueue& filterQueue) : filterQueue_(filterQueue) {}

    /// Fill, pattern and underlay, without the effects, on a new bitmap. `scale` is pixels a point.
    /// A picture is drawn from a small copy of it where `detail` asks for no more. Null where the
    /// bitmap cannot be had.
    QImage render(const BackdropSettings& backdrop, QSize pixels, double scale,
                  PictureDetail detail = PictureDetail::whole) const;

    /// Blur and saturation together, then noise, in place. Settings are clamped here; neutral ones
    /// leave the bitmap untouched. `scale` is pixels a point.
    void applyEffects(QImage& bitmap, const BackdropEffects& effects, double scale) const;

  private:
    void fill(QImage& bitmap, const BackdropSettings& backdrop, double scale,
              PictureDetail detail) const;
    void fillWithImage(QImage& bitmap, const BackdropSettings& backdrop, double scale,
                       PictureDetail detail) const;

    SerialQueue& filterQueue_;
};

/// Where a picture of `image` size is drawn to fill `area` in the given way; may reach outside.
QRectF placedImage(QSizeF image, const QRectF& area, ImageScaleFit fit);

}  // namespace kestrio
