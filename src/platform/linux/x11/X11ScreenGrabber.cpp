#include "platform/linux/x11/X11ScreenGrabber.h"

#include "core/Cancelled.h"
#include "platform/linux/x11/ReadWindow.h"

namespace kestrio {

namespace {

QImage readScreen(XcbConnection& connection, PixelReader& reader, QRect pixels) {
    QImage image;
    if (connection.open()) {
        const xcb_screen_t& screen = connection.screen();
        // Asked again: the desktop changes its size while the connection stays.
        const XcbReply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(
            connection.handle(), xcb_get_geometry(connection.handle(), screen.root), nullptr));
        const QRect desktop = size ? QRect(0, 0, size->width, size->height) : QRect();
        image = reader.read(screen.root, pixels & desktop,
                            layoutOf(connection, screen.root_depth, screen.root_visual));
        connection.dropEvents();
    }
    if (image.isNull()) throw ScreenGrabError(ScreenGrabError::Case::unreadable);
    return image;
}

}  // namespace

Task<QImage> X11ScreenGrabber::grabRectangle(QRect pixels, std::stop_token stop) {
    throwIfStopped(stop);
    const auto read =
        runOn(queue_, [this, pixels] { return readScreen(connection_, reader_, pixels); });
    QImage image = co_await read;
    throwIfStopped(stop);
    co_return image;
}

Task<QImage> X11ScreenGrabber::grabWindow(quint64 windowID, std::stop_token stop) {
    throwIfStopped(stop);
    const auto window = static_cast<xcb_window_t>(windowID);
    if (window != windowID) throw ScreenGrabError(ScreenGrabError::Case::windowGone);
    const auto read = runInBackground([window, stop] { return readWindow(window, stop); });
    QImage image = co_await read;
    throwIfStopped(stop);
    co_return image;
}

}  // namespace kestrio
