#pragma once

#include "imaging/Image.h"
#include "render/ImageRendererService.h"
#include "render/style/Theme.h"

#include <QQuickImageProvider>
#include <mutex>

namespace kestrio {

/// What thumbnails are made from: a small copy of the picture and the document's style. Set on the
/// main thread, read on the loader's.
class ThumbnailSource {
  public:
    struct Values {
        Image picture;
        EditorStyleSettings style;
        std::vector<Theme> themes;
    };

    void set(Values values);
    Values values() const;

  private:
    mutable std::mutex mutex_;
    Values values_;
};

/// Makes pictures of choices instead of their names: "kind/id?revision", where the kind is preset,
/// theme, gradient, frame, pattern, overlay or effect. Works on the loader's thread.
class ThumbnailProvider : public QQuickImageProvider {
    Q_OBJECT

  public:
    ThumbnailProvider(std::shared_ptr<ThumbnailSource> source,
                      std::shared_ptr<WatermarkServiceProtocol> watermark);

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

  private:
    std::shared_ptr<ThumbnailSource> source_;
    ImageComposer composer_;
};

}  // namespace kestrio
