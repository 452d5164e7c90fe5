#pragma once

#include "platform/Pasteboard.h"

namespace kestrio {

/// A clipboard in memory that records what is done to it and refuses pictures when told to.
class MemoryPasteboard : public Pasteboard {
  public:
    bool refusesImages = false;
    int clearCount = 0;

    void clearContents() override {
        ++clearCount;
        image_ = {};
    }

    bool writeImage(const QImage& image) override {
        if (refusesImages || image.isNull()) return false;
        image_ = image;
        return true;
    }

    QImage readImage() const override { return image_; }

  private:
    QImage image_;
};

}  // namespace kestrio
