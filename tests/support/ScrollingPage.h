#pragma once

#include <QImage>
#include <QRect>

namespace kestrio {

/// What a page for scrolling captures shows. Everything follows from these.
struct ScrollingPage {
    QSize size{800, 6000};  ///< points, without header and footer
    int headerHeight = 0;   ///< points; both stand still while the page scrolls
    int footerHeight = 0;
    quint32 seed = 1;
    int scale = 1;  ///< pixels a point
};

/// Text, code, tables with repeated rows, noise and blank stretches, from the first row to the
/// last.
QImage paintScrollingPage(const ScrollingPage& page);
/// What stands above and below the page; null where it has no height.
QImage paintScrollingHeader(const ScrollingPage& page);
QImage paintScrollingFooter(const ScrollingPage& page);

}  // namespace kestrio
