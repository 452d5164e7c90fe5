// Pixels of a whole display off the X server of $DISPLAY, beside a bare copy of as many through
// memory shared with the server, which stays the same from one copy to the next. Bound: 1.5 times.
#include <benchmark/benchmark.h>

#include <xcb/shm.h>

#include "core/Task.h"
#include "platform/linux/x11/SharedSegment.h"
#include "platform/linux/x11/X11ScreenGrabber.h"

#include <QCoreApplication>

namespace kestrio {
namespace {

QCoreApplication& application() {
    static int count = 1;
    static char name[] = "bench_grab";
    static char* arguments[] = {name, nullptr};
    static QCoreApplication made(count, arguments);
    return made;
}

void grabDisplay(benchmark::State& state) {
    application();
    XcbConnection connection;
    if (!connection.open()) return state.SkipWithError("there is no X server");
    const QRect all(0, 0, connection.screen().width_in_pixels,
                    connection.screen().height_in_pixels);
    X11ScreenGrabber grabber;
    for (auto _ : state)
        benchmark::DoNotOptimize(runUntilDone(grabber.grabRectangle(all, {})));
    state.counters["pixels"] = double(all.width()) * all.height();
}
BENCHMARK(grabDisplay)->Unit(benchmark::kMillisecond)->UseRealTime();

void copyThroughSharedMemory(benchmark::State& state) {
    XcbConnection connection;
    if (!connection.open()) return state.SkipWithError("there is no X server");
    const xcb_screen_t& screen = connection.screen();
    const SharedSegment segment(connection,
                                std::size_t{4} * screen.width_in_pixels * screen.height_in_pixels);
    if (!segment.isValid()) return state.SkipWithError("the X server shares no memory");
    for (auto _ : state) {
        const auto cookie = xcb_shm_get_image(connection.handle(), screen.root, 0, 0,
                                              screen.width_in_pixels, screen.height_in_pixels, ~0U,
                                              XCB_IMAGE_FORMAT_Z_PIXMAP, segment.id(), 0);
        const XcbReply<xcb_shm_get_image_reply_t> reply(
            xcb_shm_get_image_reply(connection.handle(), cookie, nullptr));
        if (!reply) return state.SkipWithError("the X server refuses");
        benchmark::DoNotOptimize(segment.bytes());
    }
}
BENCHMARK(copyThroughSharedMemory)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kestrio
