#include "platform/FakeSettingsPortal.h"
#include "platform/PrivateBus.h"
#include "platform/linux/PortalAppearance.h"
#include "support/Contract.h"
#include "support/ScriptedAppearance.h"
#include "support/Waiting.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <QGuiApplication>
#include <QPalette>
#include <QTemporaryDir>

namespace kestrio {
namespace {

const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString looks = QStringLiteral("org.freedesktop.appearance");
const QString scheme = QStringLiteral("color-scheme");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString animations = QStringLiteral("enable-animations");
constexpr uint noPreference = 0;
constexpr uint dark = 1;
constexpr uint light = 2;

/// A service beside the desktop that it listens to.
struct Desktop {
    virtual ~Desktop() = default;
    virtual Appearance& appearance() = 0;
    virtual void setDark(bool isDark) = 0;
    virtual void setMotionReduced(bool isReduced) = 0;
};

struct ScriptedDesktop : Desktop {
    ScriptedAppearance service;
    Appearance& appearance() override { return service; }
    void setDark(bool isDark) override { service.set_isDark(isDark); }
    void setMotionReduced(bool isReduced) override { service.set_isMotionReduced(isReduced); }
};

struct PortalDesktop : Desktop {
    PrivateBus bus;
    FakeSettingsPortal portal;
    PortalAppearance service{bus.address()};

    PortalDesktop() {
        bus.offer(portalName, portalPath, &portal);
        EXPECT_TRUE(waitUntil([this] { return portal.readCount == 3; }));
    }
    Appearance& appearance() override { return service; }
    void setDark(bool isDark) override { portal.change(looks, scheme, isDark ? dark : light); }
    void setMotionReduced(bool isReduced) override { portal.change(gnome, animations, !isReduced); }
};

const Candidate<Desktop> candidates[] = {
    candidate<Desktop, ScriptedDesktop>("scripted"),
    candidate<Desktop, PortalDesktop>("portal"),
};

class AppearanceContract : public testing::TestWithParam<Candidate<Desktop>> {};

TEST_P(AppearanceContract, FollowsTheDesktopAndSignalsChangesOnly) {
    const auto desktop = GetParam().make();
    Appearance& appearance = desktop->appearance();
    int changes = 0;
    QObject::connect(&appearance, &Appearance::isDarkChanged, [&] { ++changes; });
    QObject::connect(&appearance, &Appearance::isMotionReducedChanged, [&] { ++changes; });
    EXPECT_FALSE(appearance.isDark());
    EXPECT_FALSE(appearance.isMotionReduced());
    desktop->setDark(true);
    desktop->setDark(true);
    desktop->setMotionReduced(true);
    EXPECT_TRUE(waitUntil([&] { return appearance.isDark() && appearance.isMotionReduced(); }));
    desktop->setDark(false);
    desktop->setMotionReduced(false);
    EXPECT_TRUE(waitUntil([&] { return !appearance.isDark() && !appearance.isMotionReduced(); }));
    EXPECT_EQ(changes, 4);
}

INSTANTIATE_TEST_SUITE_P(All, AppearanceContract, testing::ValuesIn(candidates), candidateName);

/// Gives the application a palette for the length of a test.
struct PaletteGuard {
    QPalette before = QGuiApplication::palette();
    ~PaletteGuard() { QGuiApplication::setPalette(before); }

    static void setWindow(Qt::GlobalColor color) {
        QPalette changed = QGuiApplication::palette();
        changed.setColor(QPalette::Window, QColor(color));
        QGuiApplication::setPalette(changed);
    }
};

TEST(PortalAppearance, StartsWithWhatThePortalSays) {
    const PaletteGuard palette;
    PrivateBus bus;
    FakeSettingsPortal portal;
    portal.values[looks + u' ' + scheme] = dark;
    portal.values[looks + QStringLiteral(" reduced-motion")] = 1U;
    bus.offer(portalName, portalPath, &portal);
    const PortalAppearance appearance(bus.address());
    EXPECT_TRUE(waitUntil([&] { return appearance.isDark() && appearance.isMotionReduced(); }));
    // Without a preference the palette counts, also when it changes.
    portal.change(looks, scheme, noPreference);
    EXPECT_TRUE(waitUntil([&] { return !appearance.isDark(); }));
    PaletteGuard::setWindow(Qt::black);
    EXPECT_TRUE(waitUntil([&] { return appearance.isDark(); }));
    portal.change(looks, scheme, light);
    EXPECT_TRUE(waitUntil([&] { return !appearance.isDark(); }));
    // What belongs to others is none of its business.
    portal.change(gnome, scheme, dark);
    portal.change(looks, QStringLiteral("contrast"), 1U);
    portal.change(looks, QStringLiteral("reduced-motion"), 0U);
    EXPECT_TRUE(waitUntil([&] { return !appearance.isMotionReduced(); }));
    EXPECT_FALSE(appearance.isDark());
}

TEST(PortalAppearance, FollowsThePaletteWhereThereIsNoPortal) {
    const PaletteGuard palette;
    const PrivateBus bus;
    for (const QString& address : {bus.address(), QStringLiteral("unix:path=/nowhere")}) {
        PaletteGuard::setWindow(Qt::black);
        const PortalAppearance appearance(address);
        EXPECT_TRUE(appearance.isDark());
        QTimer::singleShot(std::chrono::milliseconds(100), &QCoreApplication::quit);
        QCoreApplication::exec();
        EXPECT_TRUE(appearance.isDark()) << "no answer says nothing";
        PaletteGuard::setWindow(Qt::white);
        EXPECT_TRUE(waitUntil([&] { return !appearance.isDark(); }));
    }
    QDBusConnection::disconnectFromBus(QStringLiteral("unix:path=/nowhere"));
}

TEST(PortalAppearance, CanBeForced) {
    const PaletteGuard palette;
    PrivateBus bus;
    FakeSettingsPortal portal;
    portal.values[looks + u' ' + scheme] = light;
    bus.offer(portalName, portalPath, &portal);
    qputenv("KESTRIO_APPEARANCE", "dark");
    const PortalAppearance appearance(bus.address());
    qunsetenv("KESTRIO_APPEARANCE");
    EXPECT_TRUE(waitUntil([&] { return portal.readCount == 3; }));
    portal.change(gnome, animations, false);
    EXPECT_TRUE(waitUntil([&] { return appearance.isMotionReduced(); }));
    EXPECT_TRUE(appearance.isDark());
}

/// A bus that takes connections and says nothing.
class SilentBus {
  public:
    SilentBus() {
        sockaddr_un name{};
        name.sun_family = AF_UNIX;
        const QByteArray path = folder_.filePath(QStringLiteral("bus")).toLocal8Bit();
        std::copy(path.begin(), path.end(), name.sun_path);
        EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&name), sizeof name), 0);
        EXPECT_EQ(listen(socket_, 1), 0);
    }
    ~SilentBus() { close(socket_); }

    QString address() const {
        return QStringLiteral("unix:path=") + folder_.filePath(QStringLiteral("bus"));
    }
    bool isCalled() const {
        pollfd state{socket_, POLLIN, 0};
        return poll(&state, 1, 0) == 1;
    }

  private:
    QTemporaryDir folder_;
    int socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

TEST(PortalAppearance, NeverWaitsForASilentBus) {
    auto bus = std::make_unique<SilentBus>();
    const QString address = bus->address();
    auto appearance = std::make_unique<PortalAppearance>(address);
    EXPECT_TRUE(waitUntil([&] { return bus->isCalled(); }));
    EXPECT_FALSE(appearance->isDark());
    appearance.reset();
    bus.reset();
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    QDBusConnection::disconnectFromBus(address);
}

}  // namespace
}  // namespace kestrio
