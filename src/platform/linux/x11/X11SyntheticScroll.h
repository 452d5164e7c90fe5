#pragma once

#include "platform/Displays.h"
#include "platform/SyntheticScroll.h"
#include "platform/linux/x11/XcbConnection.h"

#include <optional>

namespace kestrio {

/// By the X server's test extension, which every program may use and nobody is asked about.
class X11SyntheticScroll : public SyntheticScroll {
  public:
    X11SyntheticScroll(std::shared_ptr<XcbConnection> connection,
                       std::shared_ptr<Displays> displays);

    bool isPermitted() const override;
    bool requestPermission() override { return isPermitted(); }
    void scroll(QPointF at, int clicks) override;
    QPointF pointer() const override;
    void movePointer(QPointF to) override;

  private:
    /// In pixels; none where the pointer is on another screen or the server has gone.
    std::optional<QPoint> pointerPixel() const;
    /// False where there is no display at that point.
    bool movePointerTo(QPointF point);

    std::shared_ptr<XcbConnection> connection_;
    std::shared_ptr<Displays> displays_;
};

}  // namespace kestrio
