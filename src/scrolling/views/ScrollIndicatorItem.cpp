#include "scrolling/views/ScrollIndicatorItem.h"

#include <QPainter>

namespace kestrio {

ScrollIndicatorItem::ScrollIndicatorItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setImplicitWidth(position_.width());
    connect(this, &ScrollIndicatorItem::changed, this, [this] { update(); });
}

void ScrollIndicatorItem::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(trackColor_);
    const double round = position_.cornerRadius + position_.trackPadding;
    painter->drawRoundedRect(QRectF(QPointF(), size()), round, round);
    const QRectF thumb = position_.thumb(height());
    if (thumb.isEmpty()) return;
    painter->setBrush(thumbColor_);
    painter->drawRoundedRect(thumb, position_.cornerRadius, position_.cornerRadius);
}

}  // namespace kestrio
