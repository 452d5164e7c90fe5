#include "platform/linux/x11/PixelReader.h"

#include <sys/mman.h>
#include <QScopeGuard>
#include <cstring>
#include <deque>

namespace kestrio {

namespace {

constexpr std::uint32_t allPlanes = ~0U;
constexpr std::uint32_t opaque = 0xff000000U;

// The server fills bands of the picture in turn, while those before are copied out: several wait
// for it, so that neither side sleeps, and all together fit the processor's cache. A picture as one
// segment took six times as long at 3840 x 2160.
constexpr int bandCount = 4;
constexpr qsizetype bandBytes = qsizetype{768} * 1024;

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

/// Asks for a picture's untouched memory in large pages; the kernel takes several times as long to
/// hand it over in small ones, and that is most of a grab.
void useLargePages(QImage& image) {
    constexpr std::uintptr_t pageBytes = std::uintptr_t{2} * 1024 * 1024;
    const auto start = reinterpret_cast<std::uintptr_t>(image.bits());
    const std::uintptr_t end = start + static_cast<std::uintptr_t>(image.sizeInBytes());
    const std::uintptr_t first = (start + pageBytes - 1) / pageBytes * pageBytes;
    const std::uintptr_t last = end / pageBytes * pageBytes;
    if (first < last) madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
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

bool PixelReader::readByBands(xcb_drawable_t drawable, QRect part, QImage& image) const {
    xcb_connection_t* handle = connection_.handle();
    // Nobody draws between two bands.
    xcb_grab_server(handle);
    const auto release = qScopeGuard([handle] {
        xcb_ungrab_server(handle);
        xcb_flush(handle);
    });
    const qsizetype stride = image.bytesPerLine();
    const int rowsPerBand = static_cast<int>(std::max<qsizetype>(bandBytes / stride, 1));
    const auto rowsAt = [&](int row) { return std::min(rowsPerBand, part.height() - row); };
    const auto placeOf = [&](int row) {
        return stride * (row / rowsPerBand % bandCount) * rowsPerBand;
    };
    std::deque<xcb_shm_get_image_cookie_t> asked;
    const auto ask = [&](int row) {
        if (row >= part.height()) return;
        asked.push_back(xcb_shm_get_image(
            handle, drawable, static_cast<std::int16_t>(part.x()),
            static_cast<std::int16_t>(part.y() + row), static_cast<std::uint16_t>(part.width()),
            static_cast<std::uint16_t>(rowsAt(row)), allPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP,
            segment_->id(), static_cast<std::uint32_t>(placeOf(row))));
        xcb_flush(handle);
    };
    for (int band = 0; band < bandCount; ++band)
        ask(band * rowsPerBand);
    bool isComplete = true;
    for (int row = 0; row < part.height(); row += rowsPerBand) {
        const XcbReply<xcb_shm_get_image_reply_t> filled(
            xcb_shm_get_image_reply(handle, asked.front(), nullptr));
        asked.pop_front();
        isComplete = isComplete && filled;
        if (filled) copyRows(image, row, rowsAt(row), segment_->bytes() + placeOf(row));
        ask(row + bandCount * rowsPerBand);
    }
    return isComplete;
}

bool PixelReader::readAtOnce(xcb_drawable_t drawable, QRect part, QImage& image) const {
    const auto cookie =
        xcb_get_image(connection_.handle(), XCB_IMAGE_FORMAT_Z_PIXMAP, drawable,
                      static_cast<std::int16_t>(part.x()), static_cast<std::int16_t>(part.y()),
                      static_cast<std::uint16_t>(part.width()),
                      static_cast<std::uint16_t>(part.height()), allPlanes);
    const XcbReply<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(connection_.handle(), cookie, nullptr));
    if (!reply || xcb_get_image_data_length(reply.get()) < image.sizeInBytes()) return false;
    copyRows(image, 0, part.height(),
             reinterpret_cast<const std::byte*>(xcb_get_image_data(reply.get())));
    return true;
}

QImage PixelReader::read(xcb_drawable_t drawable, QRect part, PixelLayout layout) {
    if (layout.format == QImage::Format_Invalid || part.isEmpty()) return {};
    QImage image(part.size(), layout.format);
    if (image.isNull() || image.bytesPerLine() != rowBytes(part.width(), layout.bytesPerPixel)) {
        return {};
    }
    useLargePages(image);
    if (!segment_) segment_.emplace(connection_, static_cast<std::size_t>(bandCount * bandBytes));
    const bool hasBands = segment_->isValid() && image.bytesPerLine() <= bandBytes;
    const bool isRead =
        hasBands ? readByBands(drawable, part, image) : readAtOnce(drawable, part, image);
    if (!isRead) {
        segment_.reset();  // the connection may have been opened again
        return {};
    }
    const QImage::Format wanted =
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    return std::move(image).convertToFormat(wanted);
}

}  // namespace kestrio
