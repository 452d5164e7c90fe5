#pragma once

#include "platform/linux/recognition/OnnxRuntime.h"

#include <QImage>
#include <QRect>
#include <stop_token>
#include <vector>

namespace kestrio {

/// Finds where text stands in a picture by a model that gives each pixel a probability of lying in
/// the core of a text line (differentiable binarisation).
class TextAreaFinder {
  public:
    explicit TextAreaFinder(std::shared_ptr<const OnnxModel> model) : model_(std::move(model)) {}

    /// Rectangles of text, each usually one line or a part of it, in pixels of the picture. `scale`
    /// is the size of the copy that is searched, 1 for the picture's own. `picture` is
    /// Format_RGB32 or ARGB32_Premultiplied. Throws what the model throws.
    std::vector<QRect> find(const QImage& picture, QRect area, double scale,
                            std::stop_token stop) const;

  private:
    std::shared_ptr<const OnnxModel> model_;
};

}  // namespace kestrio
