#pragma once

#include <QRasterWindow>
#include <functional>

class QPainter;

namespace kestrio {

/// A narrow window over all others that shows a part of a drawing and lets all input through.
class RingStrip : public QRasterWindow {
    Q_OBJECT

  public:
    /// `place` is in points of the desktop, in which `paint` draws too.
    RingStrip(const QRect& place, std::function<void(QPainter&)> paint);

    /// Counts before the window is shown.
    void makeTranslucent();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::function<void(QPainter&)> paint_;
};

}  // namespace kestrio
