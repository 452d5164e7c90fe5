#include "editor/canvas/AnnotationLayer.h"

#include "annotation/painting/AnnotationPainter.h"
#include "annotation/painting/PaintedExtent.h"

namespace kestrio {

namespace {

using namespace std::chrono_literals;

// Painted beyond what is visible, in pixels, so that panning finds something.
constexpr int room = 128;
// Records that are painted at once; more would be felt as a stutter.
constexpr std::size_t mostPatched = 8;
// While zooming and panning goes on, the machine is left to it.
constexpr auto restAfterMoving = 60ms;

bool isBlur(const AnyAnnotation& record) {
    return record.as<BlurAnnotation>() != nullptr;
}

void copyOver(QImage& image, const QPoint& place, const QImage& source, const QRect& part) {
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(place, source, part);
}

}  // namespace

AnnotationMapping AnnotationLayer::Geometry::mappingFrom(const QPoint& topLeft) const {
    AnnotationMapping moved = mapping;
    moved.origin -= topLeft;
    return moved;
}

QRect AnnotationLayer::Geometry::pixels(const QRectF& points) const {
    // Damaged records reach further than whole numbers do.
    const QRectF within = mapping.mapped(points) & QRectF(area);
    return within.toAlignedRect() & area;
}

AnnotationLayer::AnnotationLayer() {
    rest_.setSingleShot(true);
    rest_.setInterval(restAfterMoving);
    connect(&rest_, &QTimer::timeout, this, [this] { requestRedraw(true); });
}

AnnotationLayer::~AnnotationLayer() {
    stop_.request_stop();
}

QRect AnnotationLayer::show(Records records, const QRect& visible,
                            const AnnotationMapping& mapping) {
    std::erase_if(records, isBlur);
    wanted_ = std::move(records);
    if (mapping != wantedGeometry_.mapping || !wantedGeometry_.area.contains(visible)) {
        wantedGeometry_ = {visible.adjusted(-room, -room, room, room), mapping};
        rest_.stop();
    }
    if (picture_.entries.empty() && picture_.geometry != wantedGeometry_) {
        dropSides();
        picture_ = {wantedGeometry_, {}, {}};
    }
    const Difference change = difference();
    const bool isElsewhere = picture_.geometry != wantedGeometry_;
    if (std::max(change.oldCount, change.newCount) > mostPatched) {
        requestRedraw(true);
        return {};
    }
    if (isElsewhere) requestRedraw(false);
    return patch(change);
}

AnnotationLayer::Difference AnnotationLayer::difference() const {
    const auto& entries = picture_.entries;
    const std::size_t common = std::min(entries.size(), wanted_.size());
    std::size_t first = 0, last = 0;
    while (first < common && isIdentical(entries[first].record, wanted_[first]))
        ++first;
    while (last < common - first && isIdentical(entries[entries.size() - 1 - last].record,
                                                wanted_[wanted_.size() - 1 - last])) {
        ++last;
    }
    return {first, entries.size() - first - last, wanted_.size() - first - last};
}

QRect AnnotationLayer::patch(const Difference& change) {
    if (change.oldCount == 0 && change.newCount == 0) return {};
    auto& entries = picture_.entries;
    const auto oldFirst = entries.begin() + static_cast<std::ptrdiff_t>(change.first);
    const auto oldLast = oldFirst + static_cast<std::ptrdiff_t>(change.oldCount);
    QRect stale;
    for (auto each = oldFirst; each != oldLast; ++each)
        stale |= picture_.geometry.pixels(each->extent);
    std::vector<Entry> added;
    for (std::size_t i = change.first; i < change.first + change.newCount; ++i) {
        added.push_back({wanted_[i], paintedExtent(wanted_[i])});
        stale |= picture_.geometry.pixels(added.back().extent);
    }
    const auto place = entries.erase(oldFirst, oldLast);
    entries.insert(place, added.begin(), added.end());

    const bool isSameAgain = change.isOneInPlace() && changing_ == change.first;
    if (!isSameAgain) dropSides();
    changing_ = change.isOneInPlace() ? std::optional(change.first) : std::nullopt;
    if (isSameAgain && !sides_ && !isSplitting_) {
        launch(split(change.first, stop_.get_token()), this);
    }
    if (!stale.isEmpty()) repaint(stale);
    return stale;
}

// Painted apart and copied over: the rasteriser is less exact where it cuts a shape off at a side.
void AnnotationLayer::repaint(const QRect& pixels) {
    constexpr int apron = 16;
    const QRect& area = picture_.geometry.area;
    const QRect around = pixels.adjusted(-apron, 0, apron, 0) & area;
    QImage fresh(around.size(), QImage::Format_ARGB32_Premultiplied);
    if (picture_.image.isNull()) {
        picture_.image = QImage(area.size(), QImage::Format_ARGB32_Premultiplied);
        picture_.image.fill(Qt::transparent);
    }
    if (fresh.isNull() || picture_.image.isNull()) return;
    fresh.fill(Qt::transparent);
    sides_ ? paintBetweenSides(fresh, around) : paintTouched(fresh, around);
    copyOver(picture_.image, pixels.topLeft() - area.topLeft(), fresh,
             pixels.translated(-around.topLeft()));
}

void AnnotationLayer::paintTouched(QImage& fresh, const QRect& pixels) const {
    Records touched;
    for (const Entry& entry : picture_.entries)
        if (picture_.geometry.pixels(entry.extent).intersects(pixels))
            touched.push_back(entry.record);
    paintAnnotations(fresh, touched, picture_.geometry.mappingFrom(pixels.topLeft()));
}

void AnnotationLayer::paintBetweenSides(QImage& fresh, const QRect& pixels) const {
    const QRect source = pixels.translated(-picture_.geometry.area.topLeft());
    if (!sides_->below.isNull()) copyOver(fresh, QPoint(), sides_->below, source);
    const AnyAnnotation& record = picture_.entries[sides_->index].record;
    paintAnnotations(fresh, {&record, 1}, picture_.geometry.mappingFrom(pixels.topLeft()));
    if (!sides_->above.isNull()) QPainter(&fresh).drawImage(QPoint(), sides_->above, source);
}

void AnnotationLayer::paint(QPainter& painter) const {
    if (picture_.entries.empty() || picture_.image.isNull()) return;
    const AnnotationMapping& shown = picture_.geometry.mapping;
    const AnnotationMapping& wanted = wantedGeometry_.mapping;
    const QRect& area = picture_.geometry.area;
    if (shown == wanted) {
        painter.drawImage(area.topLeft(), picture_.image);
        return;
    }
    // Soon replaced; interpolating would take longer than a frame.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const double factor = wanted.strokeScale / shown.strokeScale;
    const QPointF corner = wanted.origin + (QPointF(area.topLeft()) - shown.origin) * factor;
    painter.drawImage(QRectF(corner, QSizeF(area.size()) * factor), picture_.image);
}

void AnnotationLayer::endGesture() {
    dropSides();
    changing_.reset();
}

void AnnotationLayer::dropSides() {
    sides_.reset();
    ++sidesVersion_;
}

void AnnotationLayer::requestRedraw(bool isUrgent) {
    if (!isUrgent) {
        if (!isRedrawing_ && !rest_.isActive()) rest_.start();
        return;
    }
    rest_.stop();
    isRedrawStale_ = true;
    if (!isRedrawing_) launch(redraw(stop_.get_token()), this);
}

QImage AnnotationLayer::painted(std::span<const AnyAnnotation> records, const Geometry& geometry) {
    if (records.empty()) return {};
    QImage image(geometry.area.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    paintAnnotations(image, records, geometry.mappingFrom(geometry.area.topLeft()));
    return image;
}

Task<> AnnotationLayer::redraw(std::stop_token stop) {
    isRedrawing_ = true;
    while (std::exchange(isRedrawStale_, false)) {
        auto work = [records = wanted_, geometry = wantedGeometry_] {
            Picture picture{geometry, painted(records, geometry), {}};
            for (const AnyAnnotation& record : records)
                picture.entries.push_back({record, paintedExtent(record)});
            return picture;
        };
        const auto making = runInBackground(std::move(work));
        Picture made = co_await making;
        if (stop.stop_requested()) co_return;
        picture_ = std::move(made);
        endGesture();
        Q_EMIT redrawn();
    }
    isRedrawing_ = false;
}

Task<> AnnotationLayer::split(std::size_t index, std::stop_token stop) {
    isSplitting_ = true;
    const int version = sidesVersion_;
    Records below, above;
    for (std::size_t i = 0; i < picture_.entries.size(); ++i)
        if (i != index) (i < index ? below : above).push_back(picture_.entries[i].record);
    auto work = [index, below = std::move(below), above = std::move(above),
                 geometry = picture_.geometry] {
        return Sides{index, painted(below, geometry), painted(above, geometry)};
    };
    const auto making = runInBackground(std::move(work));
    Sides made = co_await making;
    if (stop.stop_requested()) co_return;
    isSplitting_ = false;
    if (version == sidesVersion_) sides_ = std::move(made);
}

}  // namespace kestrio
