#include "app/program/AppDelegate.h"

#include "app/program/CountdownIcon.h"
#include "core/Localisation.h"
#include "core/Log.h"

#include <malloc.h>
#include <QGuiApplication>
#include <QPointer>

namespace kestrio {

namespace {

// A desktop that starts programs at login may start its tray after them.
constexpr std::chrono::seconds trayPatience(5);
constexpr std::chrono::milliseconds noticeTime(3500);
constexpr std::chrono::seconds idleTime(3);

QIcon idleStatusBarIcon() {
    // On a tile of its own: trays are dark or light, and do not say which.
    return QIcon(QStringLiteral(":/kestrio/app/viewfinder.svg"));
}

QString regionKeys(AppSettingsServiceProtocol& settings) {
    const HotkeyConfig hotkey = settings.load().regionCaptureHotkey;
    return shortcutText({hotkey.keyCode, hotkey.carbonModifiers});
}

}  // namespace

AppDelegate::AppDelegate(ProgramParts parts, std::shared_ptr<HotkeyManager> hotkeys,
                         std::unique_ptr<SettingsOpener> settingsWindow, QObject* parent)
    : QObject(parent),
      parts_(std::move(parts)),
      hotkeys_(std::move(hotkeys)),
      intake_(*parts_.captures, parts_.platform.pasteboard, parts_.platform.fileDialogs,
              parts_.platform.alerts),
      // Not quit(), which asks each window whether it may close.
      quitting_({parts_.editors, parts_.settings, parts_.platform.alerts, parts_.toasts},
                [] { QCoreApplication::exit(); }),
      restoring_({parts_.drafts, parts_.editors, parts_.platform.alerts}),
      settingsWindow_(std::move(settingsWindow)),
      commands_(*parts_.captures, parts_.platform.pasteboard, [this] { activate(); }),
      server_([this](InstanceRequest request, std::stop_token stop) {
          return commands_.run(std::move(request), std::move(stop));
      }),
      bus_([this](InstanceRequest request, std::stop_token stop) {
          return commands_.run(std::move(request), std::move(stop));
      }) {
    connect(&server_, &InstanceServer::recovered, this, &AppDelegate::socketRecovered);
    connect(qGuiApp, &QCoreApplication::aboutToQuit, this, &AppDelegate::applicationWillTerminate);
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching(const QString& socket) {
    showStatusItem();
    giveBackMemoryWhenIdle();
    bindHotkeys();
    bindShortcuts();
    hotkeys_->registerHotkeys();
    if (!server_.listen(socket)) {
        logLine("AppDelegate", QStringLiteral("no socket at ") + socket);
    }
    // What can wait lets the icon show first.
    QMetaObject::invokeMethod(
        this,
        [this] {
            bus_.publish();
            parts_.permissions->checkAtLaunch();
            watchForTray();
            restoring_.offer();
        },
        Qt::QueuedConnection);
}

// Freed pictures stay with the allocator, where the next capture finds them at once; a program that
// waits in the tray must not keep a hundred megabytes for that.
void AppDelegate::giveBackMemoryWhenIdle() {
    idle_.setSingleShot(true);
    idle_.setInterval(idleTime);
    connect(&idle_, &QTimer::timeout, this, [this] {
        if (!parts_.sessions->isScreenTaken()) malloc_trim(0);
    });
    connect(parts_.sessions.get(), &SessionArbiter::isScreenTakenChanged, &idle_,
            qOverload<>(&QTimer::start));
    connect(parts_.editors.get(), &EditorWindowCoordinator::documentClosed, this, [this] {
        if (!parts_.editors->isEditorOpen()) parts_.captures->forgetLastCapture();
        idle_.start();
    });
}

void AppDelegate::showStatusItem() {
    statusItem_ = std::make_shared<StatusItemModel>(
        [settings = parts_.settings, actions = menuActions(), captures = parts_.captures] {
            return captureMenu(settings->load(), actions, captures->countdownRemaining());
        });
    followCaptures();
    connect(parts_.captures.get(), &CaptureCoordinator::countdownRemainingChanged, this,
            &AppDelegate::followCaptures);
    connect(parts_.scrollingNotice.get(), &ScrollingNotice::textChanged, this,
            &AppDelegate::followCaptures);
    parts_.platform.statusItem->show(statusItem_);
}

void AppDelegate::followCaptures() {
    const int seconds = parts_.captures->countdownRemaining();
    statusItem_->set_icon(seconds > 0 ? countdownIcon(seconds) : idleStatusBarIcon());
    const QString notice = parts_.scrollingNotice->text();
    const QString idle = notice.isEmpty() ? QStringLiteral("Kestrio") : notice;
    statusItem_->set_toolTip(seconds > 0 ? Kestrio::tr("Kestrio captures in %1s").arg(seconds)
                                         : idle);
    Q_EMIT statusItem_->menuChanged();
}

StatusMenuActions AppDelegate::menuActions() {
    const auto& captures = parts_.captures;
    StatusMenuActions actions;
    actions.captureRegion = [captures] { captures->startRegionCapture(); };
    actions.captureWindow = [captures] { captures->startWindowCapture(); };
    actions.captureScrolling = [captures] { captures->startScrollingCapture(); };
    actions.captureScrollingByItself = [captures] {
        captures->startScrollingCapture(ScrollingCaptureMode::automatic);
    };
    actions.captureLater = [captures](int seconds, CaptureKind kind) {
        captures->startDelayedCapture(seconds, kind);
    };
    actions.cancelCountdown = [captures] { captures->cancelCountdown(); };
    actions.pasteFromClipboard = [this] { intake_.pasteFromClipboard(); };
    actions.importImage = [this] { intake_.importImage(); };
    actions.openSettings = [this] { settingsWindow_->open(SettingsTab::general); };
    actions.quit = [this] { quitting_.request(); };
    return actions;
}

void AppDelegate::bindHotkeys() {
    const auto& captures = parts_.captures;
    hotkeys_->setHandler(HotkeyAction::region, [captures] { captures->startRegionCapture(); });
    hotkeys_->setHandler(HotkeyAction::window, [captures] { captures->startWindowCapture(); });
    hotkeys_->setHandler(HotkeyAction::scrolling,
                         [captures] { captures->startScrollingCapture(); });
}

void AppDelegate::bindShortcuts() {
    const StatusMenuActions actions = menuActions();
    shortcuts_.add(AppShortcuts::captureRegion, actions.captureRegion);
    shortcuts_.add(AppShortcuts::captureWindow, actions.captureWindow);
    shortcuts_.add(AppShortcuts::paste, actions.pasteFromClipboard);
    shortcuts_.add(AppShortcuts::importImage, actions.importImage);
    shortcuts_.add(AppShortcuts::preferences, actions.openSettings);
    shortcuts_.add(AppShortcuts::quit, actions.quit);
}

void AppDelegate::watchForTray() {
    QTimer::singleShot(trayPatience, this, [this] {
        if (!parts_.platform.statusItem->isAvailable()) launch(explainHowToReach(), this);
    });
}

Task<> AppDelegate::explainHowToReach() {
    const QPointer<AppDelegate> self(this);
    AlertRequest request;
    request.style = AlertStyle::informational;
    request.title = Kestrio::tr("Kestrio Runs Without an Icon");
    request.text = Kestrio::tr(
                       "This desktop has no tray, so Kestrio shows no icon. Press %1 to capture a "
                       "region, or start Kestrio again to open its preferences.")
                       .arg(regionKeys(*parts_.settings));
    request.buttons = {Kestrio::tr("Open Preferences"), Kestrio::tr("OK")};
    auto shown = parts_.platform.alerts->show(std::move(request));
    const int button = co_await shown;
    if (self && button == 0) settingsWindow_->open(SettingsTab::general);
}

void AppDelegate::activate() {
    if (parts_.editors->bringToFront() || settingsWindow_->bringToFront()) return;
    if (!parts_.platform.statusItem->isAvailable()) {
        settingsWindow_->open(SettingsTab::general);
        return;
    }
    parts_.toasts->show(Kestrio::tr("Kestrio is running. Press %1 to capture a region.")
                            .arg(regionKeys(*parts_.settings)),
                        noticeTime);
}

void AppDelegate::applicationWillTerminate() {
    hotkeys_->unregisterHotkeys();
    parts_.editors->saveFrame(*parts_.userDefaults);
    parts_.userDefaults->synchronise();
}

}  // namespace kestrio
