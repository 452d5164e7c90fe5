#pragma once

#include "app/shell/Toasts.h"
#include "platform/Displays.h"
#include "platform/FloatingWindows.h"

#include <memory>

namespace kestrio {

/// Toasts in windows of their own, below the top of the primary display, that take no input.
class ToastPresenter : public Toasts {
  public:
    ToastPresenter(std::shared_ptr<Displays> displays, std::shared_ptr<FloatingWindows> floating)
        : displays_(std::move(displays)), floating_(std::move(floating)) {}

    void show(const QString& text, std::chrono::milliseconds duration) override;

  private:
    std::shared_ptr<Displays> displays_;
    std::shared_ptr<FloatingWindows> floating_;
};

}  // namespace kestrio
