#include "editor/views/CropPanel.h"

#include <cmath>

namespace kestrio {

CropPanel::CropPanel(EditorViewModel& editor, QObject* parent) : QObject(parent), editor_(editor) {
    using Editor = EditorViewModel;
    for (const auto signal :
         {&Editor::cropRectChanged, &Editor::cropLockedRatioChanged, &Editor::screenshotChanged})
        connect(&editor, signal, this, &CropPanel::frameChanged);
}

void CropPanel::setImageRect(const QRectF& rect) {
    if (rect == imageRect_) return;
    imageRect_ = rect;
    Q_EMIT frameChanged();
}

void CropPanel::setViewHeight(double height) {
    if (height == viewHeight_) return;
    viewHeight_ = height;
    Q_EMIT frameChanged();
}

QList<QPointF> CropPanel::handles() const {
    QList<QPointF> places;
    for (const CropHandle handle : cropHandles)
        places << cropHandlePosition(handle, frame());
    return places;
}

QString CropPanel::sizeText() const {
    const QSizeF pixels = editor_.cropRect().size() * editor_.screenshot().pixelDensity();
    return QStringLiteral("%1 × %2")
        .arg(std::lround(pixels.width()))
        .arg(std::lround(pixels.height()));
}

void CropPanel::beginDrag() {
    dragStart_ = editor_.cropRect();
}

void CropPanel::dragHandle(int handle, const QPointF& way) {
    if (handle < 0 || handle >= static_cast<int>(cropHandles.size())) return;
    editor_.set_cropRect(
        draggedCropRect({cropHandles[static_cast<std::size_t>(handle)], dragStart_,
                         mapping().translationToImage(way), editor_.screenshot().pointSize(),
                         editor_.cropLockedRatio()}));
}

void CropPanel::moveFrame(const QPointF& way) {
    editor_.set_cropRect(clampedCropRect(dragStart_.translated(mapping().translationToImage(way)),
                                         editor_.screenshot().pointSize()));
}

void CropPanel::toggleRatio() {
    const QRectF rect = editor_.cropRect();
    if (ratio() > 0) {
        editor_.setCropRatio(std::nullopt);
    } else if (!rect.isEmpty()) {
        editor_.setCropRatio(rect.width() / rect.height());
    }
}

void CropPanel::lockRatio(double ratio) {
    editor_.setCropRatio(ratio > 0 ? std::optional(ratio) : std::nullopt);
}

void CropPanel::reset() {
    editor_.setCropRatio(std::nullopt);
    editor_.set_cropRect(QRectF(QPointF(), editor_.screenshot().pointSize()));
}

}  // namespace kestrio
