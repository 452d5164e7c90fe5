#pragma once

#include "platform/FloatingWindows.h"

#include <QRasterWindow>
#include <QVariantAnimation>
#include <chrono>
#include <memory>

namespace kestrio {

/// One toast: words beside a tick on a dark capsule. Deletes itself when its time is over.
class ToastWindow : public QRasterWindow {
    Q_OBJECT

  public:
    ToastWindow(const QString& text, std::shared_ptr<FloatingWindows> floating);

    /// In points.
    QSize fittingSize() const;
    /// Fades in, stays for `duration` and fades out. Once.
    void present(std::chrono::milliseconds duration);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void leave();
    QFont font() const;

    QString text_;
    std::shared_ptr<FloatingWindows> floating_;
    QVariantAnimation opacity_;
};

}  // namespace kestrio
