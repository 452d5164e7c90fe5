#include "platform/linux/x11/ReadPixels.h"

#include "platform/linux/x11/SharedSegment.h"

#include <QScopeGuard>
#include <cstring>
#include <optional>

namespace kestrio {

namespace {

constexpr std::uint32_t allPlanes = ~0U;
constexpr std::uint32_t opaque = 0xff000000U;

// Two of these are shared with the server: while it fills one, the other is copied out of. New
// shared memory is slow, and what fits the processor's cache is fast; a picture as one segment took
// six times as long at 3840 x 2160.
constexpr qsizetype bandBytes = 768 * 1024;

const xcb_visualtype_t* findVisual(const xcb_screen_t& screen, xcb_visualid_t visual) {
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem;
         xcb_depth_next(&depth))
        for (auto each = xcb_depth_visuals_iterator(depth.data); each.rem;
             xcb_visualtype_next(&each))
            if (each.data->visual_id == visual) return each.data;
    return nullptr;
}

int bytesPerPixelOf(const xcb_setup_t* setup, int depth) {
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem;
         xcb_format_next(&format))
        if (format.data->depth == depth) return format.data->bits_per_pixel / 8;
    return 0;
}

/// The server pads each row to whole units of 32 bits, as QImage does.
qsizetype rowBytes(int width, int bytesPerPixel) {
    constexpr qsizetype unit = 4;
    return (width * qsizetype{bytesPerPixel} + unit - 1) / unit * unit;
}

/// Copies rows; in Format_RGB32 the server's fourth byte may be anything.
void copyRows(QImage& image, int firstRow, int rows, const std::byte* from) {
    const qsizetype bytes = rows * image.bytesPerLine();
    uchar* to = image.bits() + firstRow * image.bytesPerLine();
    if (image.format() != QImage::Format_RGB32) {
        std::memcpy(to, from, static_cast<std::size_t>(bytes));
        return;
    }
    const auto* source = reinterpret_cast<const std::uint32_t*>(from);
    auto* target = reinterpret_cast<std::uint32_t*>(to);
    const qsizetype count = bytes / 4;
    for (qsizetype i = 0; i < count; ++i)
        target[i] = source[i] | opaque;
}

bool readByBands(const XcbConnection& connection, xcb_drawable_t drawable, QRect part,
                 const SharedSegment& segment, int rowsPerBand, QImage& image) {
    xcb_connection_t* handle = connection.handle();
    // Nobody draws between two bands.
    xcb_grab_server(handle);
    const auto release = qScopeGuard([handle] {
        xcb_ungrab_server(handle);
        xcb_flush(handle);
    });
    const qsizetype stride = rowsPerBand * image.bytesPerLine();
    const auto ask = [&](int row, int half) {
        const int rows = std::min(rowsPerBand, part.height() - row);
        const auto cookie = xcb_shm_get_image(
            handle, drawable, static_cast<std::int16_t>(part.x()),
            static_cast<std::int16_t>(part.y() + row), static_cast<std::uint16_t>(part.width()),
            static_cast<std::uint16_t>(rows), allPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, segment.id(),
            static_cast<std::uint32_t>(half * stride));
        xcb_flush(handle);
        return cookie;
    };
    const auto isFilled = [handle](xcb_shm_get_image_cookie_t cookie) {
        return XcbReply<xcb_shm_get_image_reply_t>(
                   xcb_shm_get_image_reply(handle, cookie, nullptr)) != nullptr;
    };
    bool isComplete = true;
    int half = 0;
    auto present = ask(0, half);
    for (int row = 0; row < part.height(); row += rowsPerBand, half = 1 - half) {
        const int next = row + rowsPerBand;
        std::optional<xcb_shm_get_image_cookie_t> following;
        if (next < part.height()) following = ask(next, 1 - half);
        if (isFilled(present))
            copyRows(image, row, std::min(rowsPerBand, part.height() - row),
                     segment.bytes() + half * stride);
        else
            isComplete = false;
        if (following) present = *following;
    }
    return isComplete;
}

bool readAtOnce(const XcbConnection& connection, xcb_drawable_t drawable, QRect part,
                QImage& image) {
    const auto cookie =
        xcb_get_image(connection.handle(), XCB_IMAGE_FORMAT_Z_PIXMAP, drawable,
                      static_cast<std::int16_t>(part.x()), static_cast<std::int16_t>(part.y()),
                      static_cast<std::uint16_t>(part.width()),
                      static_cast<std::uint16_t>(part.height()), allPlanes);
    const XcbReply<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(connection.handle(), cookie, nullptr));
    if (!reply || xcb_get_image_data_length(reply.get()) < image.sizeInBytes()) return false;
    copyRows(image, 0, part.height(),
             reinterpret_cast<const std::byte*>(xcb_get_image_data(reply.get())));
    return true;
}

}  // namespace

PixelLayout layoutOf(const XcbConnection& connection, int depth, xcb_visualid_t visual) {
    const xcb_setup_t* setup = xcb_get_setup(connection.handle());
    const xcb_visualtype_t* type = findVisual(connection.screen(), visual);
    if (!type || setup->image_byte_order != XCB_IMAGE_ORDER_LSB_FIRST) return {};
    struct Row {
        int depth;
        int bytes;
        std::uint32_t red;
        std::uint32_t blue;
        QImage::Format format;
    };
    constexpr Row rows[] = {
        {24, 4, 0xff0000, 0xff, QImage::Format_RGB32},
        {32, 4, 0xff0000, 0xff, QImage::Format_ARGB32_Premultiplied},
        {24, 4, 0xff, 0xff0000, QImage::Format_RGBX8888},
        {32, 4, 0xff, 0xff0000, QImage::Format_RGBA8888_Premultiplied},
        {30, 4, 0x3ff00000, 0x3ff, QImage::Format_RGB30},
        {30, 4, 0x3ff, 0x3ff00000, QImage::Format_BGR30},
        {16, 2, 0xf800, 0x1f, QImage::Format_RGB16},
        {15, 2, 0x7c00, 0x1f, QImage::Format_RGB555},
    };
    const int bytes = bytesPerPixelOf(setup, depth);
    for (const Row& row : rows)
        if (row.depth == depth && row.bytes == bytes && row.red == type->red_mask &&
            row.blue == type->blue_mask)
            return {row.format, bytes};
    return {};
}

QImage readPixels(const XcbConnection& connection, xcb_drawable_t drawable, QRect part,
                  PixelLayout layout) {
    if (layout.format == QImage::Format_Invalid || part.isEmpty()) return {};
    QImage image(part.size(), layout.format);
    const qsizetype stride = rowBytes(part.width(), layout.bytesPerPixel);
    if (image.isNull() || image.bytesPerLine() != stride) return {};
    const int rowsPerBand =
        static_cast<int>(std::clamp<qsizetype>(bandBytes / stride, 1, part.height()));
    const SharedSegment segment(connection, static_cast<std::size_t>(2 * rowsPerBand * stride));
    const bool isRead = segment.isValid()
                            ? readByBands(connection, drawable, part, segment, rowsPerBand, image)
                            : readAtOnce(connection, drawable, part, image);
    connection.dropEvents();
    if (!isRead) return {};
    const QImage::Format wanted =
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    return std::move(image).convertToFormat(wanted);
}

}  // namespace kestrio
