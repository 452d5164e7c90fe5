#pragma once

#include "support/ScrollingPage.h"

#include <QPainter>
#include <vector>

namespace kestrio {

/// Frames of a page as a window shows it that is scrolled: the header stands still at the top, the
/// footer at the bottom. All in pixels.
class ScrolledFrames {
  public:
    ScrolledFrames(const ScrollingPage& page, int frameHeight)
        : page_(paintScrollingPage(page)),
          header_(paintScrollingHeader(page)),
          footer_(paintScrollingFooter(page)),
          height_(frameHeight) {}
    /// Of a page that was painted before, without header and footer.
    ScrolledFrames(QImage page, int frameHeight) : page_(std::move(page)), height_(frameHeight) {}

    const QImage& page() const { return page_; }
    int height() const { return height_; }
    /// Rows of the page that a frame shows.
    int visibleRows() const { return height_ - header_.height() - footer_.height(); }
    int furthest() const { return page_.height() - visibleRows(); }

    /// The frame whose first row below the header is row `y` of the page.
    QImage at(int y) const {
        QImage frame(page_.width(), height_, QImage::Format_RGB32);
        QPainter painter(&frame);
        painter.drawImage(0, header_.height(), page_, 0, y, page_.width(), visibleRows());
        painter.drawImage(0, 0, header_);
        painter.drawImage(0, height_ - footer_.height(), footer_);
        return frame;
    }

    /// What frames from row `first` to row `last` make together.
    QImage joined(int first, int last) const {
        const int rows = last - first + visibleRows();
        QImage picture(page_.width(), header_.height() + rows + footer_.height(),
                       QImage::Format_RGB32);
        QPainter painter(&picture);
        painter.drawImage(0, 0, header_);
        painter.drawImage(0, header_.height(), page_, 0, first, page_.width(), rows);
        painter.drawImage(0, header_.height() + rows, footer_);
        return picture;
    }

  private:
    QImage page_, header_, footer_;
    int height_;
};

}  // namespace kestrio
