#include "editor/views/CropPanel.h"

#include <cmath>

namespace kestrio {

CropPanel::CropPanel(EditorViewModel& editor, QObject* parent) : QObject(parent), editor_(editor) {
    connect(&editor, &EditorViewModel::screenshotChanged, this, &CropPanel::frameChanged);
    for (const auto signal : {&CropSession::cropRectChanged, &CropSession::cropLockedRatioChanged})
        connect(&editor.cropSession(), signal, this, &CropPanel::frameChanged);
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
    const QSizeF pixels =
        editor_.cropSession().cropRect().size() * editor_.screenshot().pixelDensity();
    return QStringLiteral("%1 × %2")
        .arg(std::lround(pixels.width()))
        .arg(std::lround(pixels.height()));
}

void CropPanel::beginDrag() {
    dragStart_ = editor_.cropSession().cropRect();
}

void CropPanel::dragHandle(int handle, const QPointF& way) {
    if (handle < 0 || handle >= static_cast<int>(cropHandles.size())) return;
    editor_.cropSession().set_cropRect(
        draggedCropRect({cropHandles[static_cast<std::size_t>(handle)], dragStart_,
                         mapping().translationToImage(way), editor_.screenshot().pointSize(),
                         editor_.cropSession().cropLockedRatio()}));
}

void CropPanel::moveFrame(const QPointF& way) {
    editor_.cropSession().set_cropRect(
        clampedCropRect(dragStart_.translated(mapping().translationToImage(way)),
                        editor_.screenshot().pointSize()));
}

void CropPanel::toggleRatio() {
    const QRectF rect = editor_.cropSession().cropRect();
    if (ratio() > 0) {
        editor_.cropSession().setCropRatio(std::nullopt);
    } else if (!rect.isEmpty()) {
        editor_.cropSession().setCropRatio(rect.width() / rect.height());
    }
}

void CropPanel::lockRatio(double ratio) {
    editor_.cropSession().setCropRatio(ratio > 0 ? std::optional(ratio) : std::nullopt);
}

void CropPanel::reset() {
    editor_.cropSession().setCropRatio(std::nullopt);
    editor_.cropSession().set_cropRect(QRectF(QPointF(), editor_.screenshot().pointSize()));
}

}  // namespace kestrio
