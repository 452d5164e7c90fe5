#include "platform/linux/PortalAppearance.h"

#include "platform/linux/SessionBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QPointer>

namespace kestrio {

namespace {

const QLatin1String portal("org.freedesktop.portal.Desktop");
const QLatin1String portalPath("/org/freedesktop/portal/desktop");
const QLatin1String settings("org.freedesktop.portal.Settings");

const QLatin1String appearance("org.freedesktop.appearance");
const QLatin1String desktop("org.gnome.desktop.interface");
const QLatin1String colorScheme("color-scheme");
const QLatin1String reducedMotion("reduced-motion");
const QLatin1String animations("enable-animations");

std::optional<bool> forcedDarkness() {
    const QByteArray forced = qgetenv("KESTRIO_APPEARANCE");
    if (forced == "dark") return true;
    if (forced == "light") return false;
    return std::nullopt;
}

bool isPaletteDark() {
    return QGuiApplication::palette().color(QPalette::Window).lightnessF() < 0.5F;
}

// Portals wrap what they return in one variant more than what they announce.
QVariant unwrapped(QVariant value) {
    while (value.userType() == qMetaTypeId<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

}  // namespace

PortalAppearance::PortalAppearance(QString busAddress) : forced_(forcedDarkness()) {
    refresh();
    QCoreApplication::instance()->installEventFilter(this);
    launch(listen(std::move(busAddress)), this);
}

bool PortalAppearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) refresh();
    return QObject::eventFilter(watched, event);
}

Task<> PortalAppearance::listen(QString busAddress) {
    const QPointer self(this);
    const auto connected =
        runInBackground([busAddress] { return connectToSessionBus(busAddress); });
    QDBusConnection bus = co_await connected;
    if (!self || !bus.isConnected()) co_return;
    // Qt finds the slot by the names of its types, and may not have met this one yet.
    qRegisterMetaType<QDBusVariant>();
    // Naming the portal here would make Qt wait for the bus to say who that is.
    bus.connect(QString(), portalPath, settings, QStringLiteral("SettingChanged"), this,
                SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    read(bus, appearance, colorScheme);
    read(bus, appearance, reducedMotion);
    read(bus, desktop, animations);
}

void PortalAppearance::read(const QDBusConnection& bus, const QString& group, const QString& key) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(portal, portalPath, settings, QStringLiteral("Read"));
    call.setArguments({group, key});
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, group, key] {
        if (!answer->isError()) learn(group, key, answer->reply().arguments().value(0));
        answer->deleteLater();
    });
}

void PortalAppearance::onSettingChanged(const QString& group, const QString& key,
                                        const QDBusVariant& value) {
    learn(group, key, value.variant());
}

void PortalAppearance::learn(const QString& group, const QString& key, const QVariant& value) {
    constexpr uint prefersDark = 1;
    constexpr uint prefersLight = 2;
    const QVariant plain = unwrapped(value);
    if (group == appearance && key == colorScheme) {
        const uint scheme = plain.toUInt();
        asked_.reset();
        if (scheme == prefersDark || scheme == prefersLight) asked_ = scheme == prefersDark;
    } else if (group == appearance && key == reducedMotion) {
        asksForLessMotion_ = plain.toUInt() == 1;
    } else if (group == desktop && key == animations) {
        hasAnimations_ = plain.toBool();
    }
    refresh();
}

void PortalAppearance::refresh() {
    set_isDark(forced_ ? *forced_ : asked_ ? *asked_ : isPaletteDark());
    set_isMotionReduced(asksForLessMotion_ || !hasAnimations_);
}

}  // namespace kestrio
