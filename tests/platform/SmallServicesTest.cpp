#include "platform/PlatformServices.h"
#include "platform/linux/ThemeSounds.h"
#include "platform/linux/x11/X11ScreenPermission.h"
#include "support/RecordingSounds.h"
#include "support/ScriptedScreenPermission.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(ScreenPermission, IsGivenOnAnXServerAndNotWithinWayland) {
    X11ScreenPermission permission(std::make_shared<XcbConnection>());
    EXPECT_TRUE(permission.preflight());
    EXPECT_TRUE(permission.request());
    permission.openSettings();
    qputenv("XDG_SESSION_TYPE", "wayland");
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    EXPECT_FALSE(permission.preflight());
    EXPECT_FALSE(permission.request());
    qunsetenv("XDG_SESSION_TYPE");
    qunsetenv("WAYLAND_DISPLAY");
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":9999");
    EXPECT_FALSE(X11ScreenPermission(std::make_shared<XcbConnection>()).preflight());
    qputenv("DISPLAY", display);
}

TEST(ScreenPermission, DoubleIsGivenByItsUser) {
    ScriptedScreenPermission permission;
    permission.isGranted = false;
    EXPECT_FALSE(permission.request());
    permission.userGrants = true;
    EXPECT_FALSE(permission.preflight());
    EXPECT_TRUE(permission.request());
    EXPECT_TRUE(permission.preflight());
    EXPECT_EQ(permission.requestCount, 2);
}

TEST(Sounds, NeverHoldUpTheMainLoop) {
    ThemeSounds sounds;
    QElapsedTimer time;
    time.start();
    for (const char* name : {"Tink", "Glass", "Nothing", ""})
        sounds.play(QString::fromLatin1(name));
    EXPECT_LT(time.elapsed(), 20);
    RecordingSounds recorded;
    recorded.play(QStringLiteral("Tink"));
    EXPECT_EQ(recorded.played, QStringList(QStringLiteral("Tink")));
}

TEST(PlatformServices, AreAllThereAndMadeInNoTime) {
    QElapsedTimer time;
    time.start();
    const PlatformServices services = makePlatformServices();
    EXPECT_LT(time.elapsed(), 20);
    EXPECT_TRUE(services.displays && services.screenGrabber && services.windowList &&
                services.screenPermission && services.globalHotkeys && services.statusItem &&
                services.alerts && services.loginItem && services.sounds &&
                services.syntheticScroll && services.makeScreenStream());
}

}  // namespace
}  // namespace kestrio
