#include "platform/linux/x11/ScreenReading.h"

#include "core/Localisation.h"
#include "platform/ScreenStream.h"

#include <QScopeGuard>

namespace kestrio {

namespace {

[[noreturn]] void throwUnreadable() {
    throw ScreenStreamError(Kestrio::tr("The screen cannot be read"));
}

[[noreturn]] void throwLost() {
    throw ScreenStreamError(Kestrio::tr("The connection to the screen was lost"));
}

xcb_rectangle_t rectangleOf(QRect pixels) {
    return {static_cast<std::int16_t>(pixels.x()), static_cast<std::int16_t>(pixels.y()),
            static_cast<std::uint16_t>(pixels.width()),
            static_cast<std::uint16_t>(pixels.height())};
}

}  // namespace

ScreenReading::ScreenReading(QRect pixels) : pixels_(pixels) {
    if (!connection_.open()) throwLost();
    watchChanges();
}

void ScreenReading::watchChanges() {
    if (!connection_.hasExtension(&xcb_damage_id) || !connection_.hasExtension(&xcb_xfixes_id))
        throw ScreenStreamError(Kestrio::tr("The screen does not report what changes on it"));
    xcb_connection_t* handle = connection_.handle();
    damageEvent_ = xcb_get_extension_data(handle, &xcb_damage_id)->first_event + XCB_DAMAGE_NOTIFY;
    // Both refuse whoever has not said which version it speaks.
    const auto damageVersion = xcb_damage_query_version(handle, 1, 1);
    const auto regionVersion = xcb_xfixes_query_version(handle, 2, 0);
    const XcbReply<xcb_damage_query_version_reply_t> damage(
        xcb_damage_query_version_reply(handle, damageVersion, nullptr));
    const XcbReply<xcb_xfixes_query_version_reply_t> region(
        xcb_xfixes_query_version_reply(handle, regionVersion, nullptr));
    if (!damage || !region) throwLost();
    area_ = xcb_generate_id(handle);
    changes_ = xcb_generate_id(handle);
    damage_ = xcb_generate_id(handle);
    const xcb_rectangle_t area = rectangleOf(pixels_);
    xcb_xfixes_create_region(handle, area_, 1, &area);
    xcb_xfixes_create_region(handle, changes_, 0, nullptr);
    // One event for any number of changes, until they are taken.
    const XcbReply<xcb_generic_error_t> refused(xcb_request_check(
        handle, xcb_damage_create_checked(handle, damage_, connection_.screen().root,
                                          XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY)));
    if (refused) throwUnreadable();
}

bool ScreenReading::hasHeardOfChanges() {
    constexpr std::uint8_t sentByClient = 0x80;
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.handle())})
        if ((event->response_type & ~sentByClient) == damageEvent_) hasHeard_ = true;
    if (xcb_connection_has_error(connection_.handle())) throwLost();
    return hasHeard_;
}

std::vector<QRect> ScreenReading::takeChanges() {
    xcb_connection_t* handle = connection_.handle();
    xcb_damage_subtract(handle, damage_, XCB_XFIXES_REGION_NONE, changes_);
    xcb_xfixes_intersect_region(handle, changes_, area_, changes_);
    const XcbReply<xcb_xfixes_fetch_region_reply_t> reply(
        xcb_xfixes_fetch_region_reply(handle, xcb_xfixes_fetch_region(handle, changes_), nullptr));
    if (!reply) throwLost();
    const xcb_rectangle_t* parts = xcb_xfixes_fetch_region_rectangles(reply.get());
    const int count = xcb_xfixes_fetch_region_rectangles_length(reply.get());
    std::vector<QRect> rectangles;
    for (int i = 0; i < count; ++i)
        rectangles.push_back(QRect(parts[i].x, parts[i].y, parts[i].width, parts[i].height)
                                 .translated(-pixels_.topLeft()));
    return rectangles;
}

ScreenReading::Picture ScreenReading::read(std::vector<QRect> dirtyRects) {
    const xcb_screen_t& screen = connection_.screen();
    const auto time = std::chrono::steady_clock::now();
    QImage image = reader_.read(screen.root, pixels_,
                                layoutOf(connection_, screen.root_depth, screen.root_visual));
    if (image.isNull() && xcb_connection_has_error(connection_.handle())) throwLost();
    if (image.isNull()) throwUnreadable();
    return {std::move(image).convertToFormat(QImage::Format_RGB32), std::move(dirtyRects), time};
}

ScreenReading::Picture ScreenReading::readAll() {
    xcb_connection_t* handle = connection_.handle();
    xcb_grab_server(handle);
    const auto release = qScopeGuard([handle] { xcb_ungrab_server(handle), xcb_flush(handle); });
    xcb_damage_subtract(handle, damage_, XCB_XFIXES_REGION_NONE, XCB_XFIXES_REGION_NONE);
    hasHeard_ = false;
    return read({});
}

ScreenReading::Picture ScreenReading::readChanges() {
    xcb_connection_t* handle = connection_.handle();
    // Nobody draws between the list of changes and the picture, or the picture would hold changes
    // that come as those of the next one.
    xcb_grab_server(handle);
    const auto release = qScopeGuard([handle] { xcb_ungrab_server(handle), xcb_flush(handle); });
    hasHeard_ = false;
    std::vector<QRect> changes = takeChanges();
    if (changes.empty()) return {};
    return read(std::move(changes));
}

}  // namespace kestrio
