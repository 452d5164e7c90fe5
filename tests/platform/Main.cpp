#include "platform/linux/QtDisplays.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// One line for each display: pixels, scale, and its origin in points.
int tellDisplays() {
    const kestrio::QtDisplays displays(std::make_shared<kestrio::XcbConnection>());
    for (const kestrio::Display& each : displays.displays())
        std::printf("%s %d,%d %dx%d scale %g at %g,%g\n", qPrintable(each.name), each.pixels.x(),
                    each.pixels.y(), each.pixels.width(), each.pixels.height(), each.scale,
                    each.bounds.x(), each.bounds.y());
    return 0;
}

}  // namespace

// Real panels are widgets, and remember their size in the user's configuration.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir configuration;
    qputenv("XDG_CONFIG_HOME", configuration.path().toLocal8Bit());
    // Tests that need a bus bring their own. What the user's has, such as a tray, is not to be
    // touched.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    if (QApplication::arguments().contains(QStringLiteral("--tell-displays")))
        return tellDisplays();
    return RUN_ALL_TESTS();
}
