#pragma once

#include "annotation/model/BlurAnnotation.h"
#include "core/SerialQueue.h"
#include "imaging/Image.h"

#include <stop_token>
#include <vector>

namespace kestrio {

struct RenderGroup;
class BlurGeometry;

/// Makes regions of pictures unreadable. Annotations of one strength cost one pass however many
/// they are, and a pass costs what it covers.
class BlurEffectRenderer {
  public:
    BlurEffectRenderer();

    /// The one that everybody uses, so that no two pictures are worked on at the same time.
    static BlurEffectRenderer& shared();

    /// The picture with the effects in it, weaker kinds below stronger ones: Gaussian, mosaic,
    /// solid cover, each by ascending strength. Every pixel that an annotation touches is changed,
    /// no other one. `canvasSize` is the size in points of the canvas that the annotations'
    /// rectangles are expressed in, `contentRect` the part of the picture that shows this canvas,
    /// in the picture's points; all from the top left.
    ///
    /// The very picture comes back where there is nothing to do. One that the caller gives up is
    /// changed in place, a shared one copied once. Never throws: where memory runs short it gives
    /// what it has reached, and so it does soon after a stop; whoever asked for that drops it.
    /// Blocks; any thread.
    Image apply(Image image, const std::vector<BlurAnnotation>& annotations, QSizeF canvasSize,
                QRectF contentRect, std::stop_token stop = {});

  private:
    void render(QImage& bitmap, const std::vector<RenderGroup>& groups,
                const BlurGeometry& geometry, const std::stop_token& stop);

    SerialQueue renderQueue_;
};

}  // namespace kestrio
