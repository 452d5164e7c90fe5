#include "scrolling/overlays/ScrollingOverlays.h"

#include "scrolling/overlays/CaptureKeys.h"
#include "scrolling/overlays/PanelPlacement.h"
#include "scrolling/overlays/ScrollingRegionOverlay.h"
#include "scrolling/overlays/ScrollingStatusModel.h"

#include <functional>

namespace kestrio {

ScrollingOverlays::ScrollingOverlays(ScrollingOverlayServices services,
                                     StatusPanelFactory makePanel, Notify notify, QObject* parent)
    : ScrollingPresenter(parent),
      services_(std::move(services)),
      makePanel_(std::move(makePanel)),
      notify_(std::move(notify)) {}

ScrollingOverlays::~ScrollingOverlays() {
    end();
}

void ScrollingOverlays::begin(const ScrollingPresentation& presentation) {
    end();
    const auto displays = services_.displays->displays();
    const QRectF& region = presentation.region;
    const Display* display = displayOfRegion(displays, region);
    const double visible = region.height() * (display ? display->scale : 1);
    model_ = std::make_unique<ScrollingStatusModel>(presentation.isManual, visible);
    relayRequests();
    keys_ = std::make_unique<CaptureKeys>(services_.hotkeys);
    connect(keys_.get(), &CaptureKeys::confirmed, model_.get(),
            &ScrollingStatusModel::pressPrimary);
    connect(keys_.get(), &CaptureKeys::cancelled, model_.get(), &ScrollingStatusModel::pressCancel);
    frame_ = std::make_unique<ScrollingRegionOverlay>(services_.floating, services_.appearance);
    frame_->show(region, display ? display->bounds : region);
    showPanel(region);
}

// From the event loop: whoever hears of it may call end(), and with it goes the window whose button
// was just pressed. What was pressed before an end() is dropped with the model.
void ScrollingOverlays::relayRequests() {
    const auto relay = [this](auto from, void (ScrollingPresenter::*to)()) {
        const auto pass = [this, to] { std::invoke(to, this); };
        connect(model_.get(), from, model_.get(), pass, Qt::QueuedConnection);
    };
    relay(&ScrollingStatusModel::startRequested, &ScrollingPresenter::startRequested);
    relay(&ScrollingStatusModel::completeRequested, &ScrollingPresenter::completeRequested);
    relay(&ScrollingStatusModel::cancelRequested, &ScrollingPresenter::cancelRequested);
}

void ScrollingOverlays::showPanel(const QRectF& region) {
    panel_ = makePanel_(*model_);
    const auto place =
        panel_ ? panelPlace(region, services_.displays->displays(), panel_->size()) : std::nullopt;
    if (place) return panel_->showAt(*place);
    panel_.reset();
    notify(model_->summary());
}

void ScrollingOverlays::showProgress(const ScrollingProgress& progress) {
    if (!model_) return;
    model_->showProgress(progress);
    if (!panel_) notify(model_->summary());
}

void ScrollingOverlays::flash() {
    if (frame_) frame_->flash();
}

void ScrollingOverlays::showStarted() {
    if (!model_) return;
    model_->showStarted();
    if (!panel_) notify(model_->summary());
}

void ScrollingOverlays::showStitching() {
    if (!model_) return;
    model_->showStitching();
    if (!panel_) notify(model_->summary());
}

void ScrollingOverlays::end() {
    keys_.reset();
    panel_.reset();
    frame_.reset();
    model_.reset();
    notify({});
}

void ScrollingOverlays::notify(const QString& text) {
    if (std::exchange(notice_, text) != text && notify_) notify_(text);
}

}  // namespace kestrio
