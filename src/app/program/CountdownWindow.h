#pragma once

#include "platform/FloatingWindows.h"

#include <QRasterWindow>

namespace kestrio {

/// The seconds left of a timed capture, in a dark disc that takes no input.
class CountdownWindow : public QRasterWindow {
    Q_OBJECT

  public:
    explicit CountdownWindow(FloatingWindows& floating);

    /// In points.
    static QSize fittingSize();
    void setSeconds(int seconds);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int seconds_ = 0;
};

}  // namespace kestrio
