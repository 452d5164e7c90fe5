#include "scrolling/overlays/ScrollingRegionOverlay.h"

#include "scrolling/overlays/RingStrip.h"
#include "ui/Palette.h"

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds tickLength{33};
// For the glow of a flash, in points.
constexpr int glowRoom = 3;

}  // namespace

ScrollingRegionOverlay::ScrollingRegionOverlay(std::shared_ptr<FloatingWindows> floating,
                                               std::shared_ptr<Appearance> appearance,
                                               QObject* parent)
    : QObject(parent), floating_(std::move(floating)), appearance_(std::move(appearance)) {
    const auto follow = [this] {
        view_.isMotionReduced = appearance_->isMotionReduced();
        view_.borderColor = Palette::of(appearance_->isDark()).accent;
        updateTimer();
        repaint();
    };
    follow();
    connect(appearance_.get(), &Appearance::isMotionReducedChanged, this, follow);
    connect(appearance_.get(), &Appearance::isDarkChanged, this, follow);
    timer_.setInterval(tickLength);
    connect(&timer_, &QTimer::timeout, this, &ScrollingRegionOverlay::tick);
}

ScrollingRegionOverlay::~ScrollingRegionOverlay() = default;

void ScrollingRegionOverlay::show(const QRectF& region, const QRectF& display) {
    hide();
    const bool isTranslucent = floating_->supportsTranslucency();
    measures_.lineWidth = view_.borderWidth;
    // Without a compositor a glow would be a solid frame.
    measures_.outside = isTranslucent ? glowRoom : 0;
    ring_ = ringAround(region, display, measures_);
    for (const QRect& place : ring_.strips) {
        strips_.push_back(std::make_unique<RingStrip>(
            place, [this](QPainter& painter) { view_.paint(painter, ring_, measures_); }));
        RingStrip& strip = *strips_.back();
        if (isTranslucent) {
            strip.makeTranslucent();
        } else {
            strip.setMask((ring_.shape & place).translated(-place.topLeft()));
        }
        floating_->prepare(strip);
        strip.show();
    }
    updateTimer();
}

void ScrollingRegionOverlay::hide() {
    strips_.clear();
    view_.isFlashing = false;
    view_.flashAlpha = 0;
    timer_.stop();
}

void ScrollingRegionOverlay::flash() {
    if (!isShown()) return;
    view_.flash();
    updateTimer();
    repaint();
}

void ScrollingRegionOverlay::tick() {
    if (view_.tick()) repaint();
    updateTimer();
}

void ScrollingRegionOverlay::updateTimer() {
    const bool isWanted = isShown() && view_.isMoving();
    if (isWanted == timer_.isActive()) return;
    isWanted ? timer_.start() : timer_.stop();
}

void ScrollingRegionOverlay::repaint() {
    for (const auto& strip : strips_)
        strip->update();
}

}  // namespace kestrio
