#pragma once

#include "platform/ScreenPermission.h"
#include "platform/linux/x11/XcbConnection.h"

namespace kestrio {

/// On an X server every program may read the screen, and there is no question and no place to
/// change that. The X server of a Wayland desktop shows its own windows on black only.
class X11ScreenPermission : public ScreenPermission {
  public:
    explicit X11ScreenPermission(std::shared_ptr<XcbConnection> connection)
        : connection_(std::move(connection)) {}

    bool preflight() const override;
    bool request() override { return preflight(); }
    QString obstacle() const override;
    void openSettings() override {}

  private:
    std::shared_ptr<XcbConnection> connection_;
};

}  // namespace kestrio
