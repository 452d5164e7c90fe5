#include "platform/linux/x11/ReadWindow.h"

#include "core/Cancelled.h"
#include "imaging/filters/Opacity.h"
#include "platform/ScreenGrabber.h"
#include "platform/linux/x11/PixelReader.h"
#include "platform/linux/x11/WindowFrame.h"

#include <poll.h>
#include <QDeadlineTimer>
#include <cstring>

#include <xcb/composite.h>
#include <xcb/damage.h>

namespace kestrio {

namespace {

using std::chrono::milliseconds;

// A window that has just been taken off the screen paints what was covered. Until it has, the
// server shows its background there. A window that draws without end is read after the limit.
constexpr milliseconds paintingPause{120};
constexpr milliseconds paintingLimit{600};
constexpr milliseconds stopInterval{20};

[[noreturn]] void throwGone() {
    throw ScreenGrabError(ScreenGrabError::Case::windowGone);
}

[[noreturn]] void throwUnreadable() {
    throw ScreenGrabError(ScreenGrabError::Case::unreadable);
}

/// Reports of drawing in a window and in what it holds.
class DamageWatch {
  public:
    DamageWatch(const XcbConnection& connection, xcb_window_t window)
        : connection_(connection),
          damage_(xcb_generate_id(connection.handle())),
          event_(xcb_get_extension_data(connection.handle(), &xcb_damage_id)->first_event) {
        xcb_damage_query_version_unchecked(connection.handle(), 1, 1);
        xcb_damage_create(connection.handle(), damage_, window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
        xcb_flush(connection.handle());
    }

    void waitForPause(const std::stop_token& stop) {
        const QDeadlineTimer limit(paintingLimit);
        QDeadlineTimer pause(paintingPause);
        while (!pause.hasExpired() && !limit.hasExpired()) {
            throwIfStopped(stop);
            if (takeReport()) pause.setRemainingTime(paintingPause);
            pollfd input{xcb_get_file_descriptor(connection_.handle()), POLLIN, 0};
            poll(&input, 1, static_cast<int>(stopInterval.count()));
        }
    }

  private:
    bool takeReport() {
        bool isReported = false;
        while (
            const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.handle())}) {
            constexpr int sentByClient = 0x80;
            if ((event->response_type & ~sentByClient) == event_ + XCB_DAMAGE_NOTIFY)
                isReported = true;
        }
        if (!isReported) return false;
        xcb_damage_subtract(connection_.handle(), damage_, XCB_NONE, XCB_NONE);
        xcb_flush(connection_.handle());
        return true;
    }

    const XcbConnection& connection_;
    xcb_damage_damage_t damage_;
    int event_;
};

/// The window's own pixels, which the server keeps while it is redirected. Redirection, damage and
/// pixmap go with the connection.
QImage readRedirected(const XcbConnection& connection, const WindowFrame& frame, bool isKept,
                      const std::stop_token& stop) {
    xcb_connection_t* handle = connection.handle();
    if (!connection.hasExtension(&xcb_composite_id)) return {};
    xcb_discard_reply(handle, xcb_composite_query_version(handle, 0, 4).sequence);
    if (isKept || !connection.hasExtension(&xcb_damage_id)) {
        xcb_composite_redirect_window(handle, frame.window, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    } else {
        DamageWatch damage(connection, frame.window);
        xcb_composite_redirect_window(handle, frame.window, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
        xcb_flush(handle);
        damage.waitForPause(stop);
    }
    const xcb_pixmap_t pixmap = xcb_generate_id(handle);
    const XcbReply<xcb_generic_error_t> error(xcb_request_check(
        handle, xcb_composite_name_window_pixmap_checked(handle, frame.window, pixmap)));
    if (error) return {};
    const XcbReply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(handle, xcb_get_geometry(handle, pixmap), nullptr));
    if (!size) return {};
    const QRect part =
        frame.visible.translated(-frame.outer.topLeft()) & QRect(0, 0, size->width, size->height);
    return PixelReader(connection)
        .read(pixmap, part, layoutOf(connection, frame.depth, frame.visual));
}

/// What lies outside of the shape becomes clear.
QImage cutOut(const QImage& image, const QRegion& shape) {
    if ((QRegion(image.rect()) - shape).isEmpty()) return image;
    QImage cut(image.size(), QImage::Format_ARGB32_Premultiplied);
    cut.fill(Qt::transparent);
    constexpr std::size_t pixelBytes = 4;
    for (const QRect& part : shape& image.rect())
        for (int y = part.top(); y <= part.bottom(); ++y) {
            const std::size_t offset = static_cast<std::size_t>(part.left()) * pixelBytes;
            std::memcpy(cut.scanLine(y) + offset, image.constScanLine(y) + offset,
                        static_cast<std::size_t>(part.width()) * pixelBytes);
        }
    return cut;
}

}  // namespace

QImage readWindow(xcb_window_t client, const std::stop_token& stop) {
    XcbConnection connection;
    if (!connection.open()) throwUnreadable();
    const auto frame = findFrame(connection, client);
    if (!frame) throwGone();
    const xcb_screen_t& screen = connection.screen();
    const QRect desktop(0, 0, screen.width_in_pixels, screen.height_in_pixels);
    constexpr int depthWithAlpha = 32;
    const bool isComposed = connection.isOwned(XAtom::compositingManager);
    const bool isOnTop = !isComposed && frame->depth != depthWithAlpha &&
                         desktop.contains(frame->visible) && !isCovered(connection, *frame);
    const QImage image =
        isOnTop ? PixelReader(connection)
                      .read(screen.root, frame->visible,
                            layoutOf(connection, screen.root_depth, screen.root_visual))
                : readRedirected(connection, *frame, isComposed, stop);
    throwIfStopped(stop);
    if (image.isNull() && !findFrame(connection, client)) throwGone();
    if (image.isNull()) throwUnreadable();
    return markedOpaque(cutOut(image, frame->shape.translated(-frame->visible.topLeft())));
}

}  // namespace kestrio
