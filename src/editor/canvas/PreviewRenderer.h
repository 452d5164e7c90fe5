#pragma once

#include "editor/document/EditorViewModel.h"
#include "render/preview/BlurredScreenshotPreviewLayer.h"

namespace kestrio {

/// The picture that the canvas shows: the document without its annotations but blurs, not turned,
/// in as many pixels as the canvas covers, made in the background by the composer that makes the
/// finished picture too. Changes while one is being made are made together afterwards. Main thread.
class PreviewRenderer : public QObject {
    Q_OBJECT
    /// The last one made; null before the first.
    PUBLISHED(QImage, preview, {})

  public:
    PreviewRenderer(EditorViewModel& editor,
                    std::shared_ptr<ImageRendererServiceProtocol> imageRenderer,
                    std::shared_ptr<WatermarkServiceProtocol> watermark, QObject* parent = nullptr);
    ~PreviewRenderer() override;

    /// How many pixels a point of the canvas gets; more than the screenshot's own are not made. The
    /// first is used at once, another when it has stood for a moment.
    void setScale(double pixelsPerPoint);

    /// Where the screenshot stands in the preview, in points of the canvas; none before the first
    /// preview, and where the document's canvas or screenshot is another one by now.
    std::optional<QRectF> shownContent() const;

    /// The blurs to be seen that the preview does not show as they are now: those just being drawn
    /// or moved, and others until they have been made.
    std::vector<BlurAnnotation> pendingBlurs() const;

  private:
    void requestScreenshot();
    void requestPreview();
    void requestStyle();
    /// What the screenshot covers of the preview.
    QSize shownPixels() const;
    void watchBlurs();
    void refreshBlurs();
    Task<> shrinkScreenshot(std::stop_token stop);
    Task<> renderPreviews(std::stop_token stop);
    /// A request, and the blurs that its picture has.
    struct Sketch {
        CompositeRequest request;
        std::vector<BlurAnnotation> blurs;
    };
    std::optional<Sketch> previewRequest() const;

    EditorViewModel& editor_;
    std::shared_ptr<ImageRendererServiceProtocol> imageRenderer_;
    BlurredScreenshotPreviewLayer blurred_;
    std::vector<BlurAnnotation> blurs_, shownBlurs_;
    /// The blur that is left out while it moves.
    bool isRecordMoving_ = false;
    std::optional<QUuid> movingBlur_;
    QTimer blurRest_, scaleRest_;
    double wantedScale_ = 0;
    QSizeF composedCanvas_;
    /// The geometry of `preview`, in points of the canvas.
    CompositeLayout shownLayout_;
    QSize shrunkFor_;
    bool isShrinking_ = false, isShrinkStale_ = false;
    bool isRendering_ = false, isRenderStale_ = false;
    std::stop_source stop_;
};

}  // namespace kestrio
