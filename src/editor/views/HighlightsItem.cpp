#include "editor/views/HighlightsItem.h"

#include <QQuickWindow>
#include <QSGNode>
#include <QSGRectangleNode>

namespace kestrio {

namespace {

constexpr double lineWidth = 1;  // points
constexpr double gap = 2;        // points between a line of text and its frame
constexpr double fillOpacity = 0.10;
constexpr double strongFillOpacity = 0.28;
constexpr double lineOpacity = 0.55;

}  // namespace

HighlightsItem::HighlightsItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    connect(this, &HighlightsItem::colorChanged, this, &QQuickItem::update);
    connect(this, &HighlightsItem::hoveredChanged, this, &QQuickItem::update);
}

void HighlightsItem::setPanel(TextPanel* panel) {
    if (panel_ == panel) return;
    panel_ = panel;
    if (panel_) {
        connect(&panel_->text(), &OCRViewModel::highlightedRegionsChanged, this,
                &QQuickItem::update);
    }
    update();
    Q_EMIT panelChanged();
}

void HighlightsItem::setHovered(int index) {
    if (std::exchange(hovered_, index) != index) Q_EMIT hoveredChanged();
}

int HighlightsItem::blockAt(const QPointF& place) const {
    if (!panel_ || width() <= 0 || height() <= 0) return -1;
    return panel_->text().regionAt({place.x() / width(), 1 - place.y() / height()});
}

QRectF HighlightsItem::blockRect(int index) const {
    if (!panel_ || index < 0 || index >= int(panel_->text().highlightedRegions().size())) return {};
    const QRectF bounds = panel_->text().highlightedRegions()[std::size_t(index)].bounds;
    return {bounds.x() * width(), (1 - bounds.bottom()) * height(), bounds.width() * width(),
            bounds.height() * height()};
}

void HighlightsItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    update();
}

void HighlightsItem::placeFrame(QSGNode* frame, const QRectF& rect, bool isStrong) const {
    const std::pair<QRectF, double> parts[] = {
        {rect, isStrong ? strongFillOpacity : fillOpacity},
        {{rect.left(), rect.top(), rect.width(), lineWidth}, lineOpacity},
        {{rect.left(), rect.bottom() - lineWidth, rect.width(), lineWidth}, lineOpacity},
        {{rect.left(), rect.top(), lineWidth, rect.height()}, lineOpacity},
        {{rect.right() - lineWidth, rect.top(), lineWidth, rect.height()}, lineOpacity},
    };
    QSGNode* child = frame->firstChild();
    for (const auto& [place, opacity] : parts) {
        if (!child) frame->appendChildNode(child = window()->createRectangleNode());
        auto* const part = static_cast<QSGRectangleNode*>(child);
        QColor color = color_;
        color.setAlphaF(float(opacity));
        part->setRect(place);
        part->setColor(color);
        child = child->nextSibling();
    }
}

// A rectangle of the scene for each line and fill: these are drawn by every renderer, and while the
// view moves or the pointer passes over them, they only change.
QSGNode* HighlightsItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    // Qt's renderer without a GPU knows the place of what is added later from its parent, and of
    // all kinds of parents only from some.
    if (!node) node = new QSGTransformNode;
    const std::vector<OCRRegion> none;
    const std::vector<OCRRegion>& regions = panel_ ? panel_->text().highlightedRegions() : none;
    while (node->childCount() > int(regions.size())) {
        QSGNode* const last = node->lastChild();
        node->removeChildNode(last);
        delete last;
    }
    while (node->childCount() < int(regions.size()))
        node->appendChildNode(new QSGTransformNode);
    QSGNode* frame = node->firstChild();
    for (int index = 0; index < int(regions.size()); ++index, frame = frame->nextSibling()) {
        const bool isStrong = index == hovered_ || regions[std::size_t(index)].isSelected;
        placeFrame(frame, blockRect(index).adjusted(-gap, -gap, gap, gap), isStrong);
    }
    return node;
}

}  // namespace kestrio
