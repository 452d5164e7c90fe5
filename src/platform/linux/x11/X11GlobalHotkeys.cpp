#include "platform/linux/x11/X11GlobalHotkeys.h"

#include "platform/linux/x11/XcbConnection.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <algorithm>
#include <cstring>

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds releaseInterval{10};
constexpr std::chrono::milliseconds keymapPause{50};

xcb_connection_t* qtConnection() {
    auto* application =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return application ? application->connection() : nullptr;
}

int firstKeyboardEvent(xcb_connection_t* connection) {
    constexpr const char* name = "XKEYBOARD";
    const XcbReply<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(
        connection,
        xcb_query_extension(connection, static_cast<std::uint16_t>(std::strlen(name)), name),
        nullptr));
    return reply && reply->present ? reply->first_event : -1;
}

}  // namespace

X11GlobalHotkeys::X11GlobalHotkeys() {
    heldTimer_.setInterval(releaseInterval);
    connect(&heldTimer_, &QTimer::timeout, this, &X11GlobalHotkeys::lookForRelease);
    keymapTimer_.setInterval(keymapPause);
    keymapTimer_.setSingleShot(true);
    connect(&keymapTimer_, &QTimer::timeout, this, &X11GlobalHotkeys::regrab);
}

X11GlobalHotkeys::~X11GlobalHotkeys() {
    if (!connection_ || !qGuiApp) return;
    qGuiApp->removeNativeEventFilter(this);
    for (const auto& [id, hotkey] : hotkeys_)
        release(hotkey);
    xcb_flush(connection_);
}

bool X11GlobalHotkeys::connectToServer() {
    if (connection_) return true;
    connection_ = qtConnection();
    if (!connection_) return false;
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    keyboardEvent_ = firstKeyboardEvent(connection_);
    qGuiApp->installNativeEventFilter(this);
    return true;
}

HotkeyRegistration X11GlobalHotkeys::registerHotkey(int id, KeyCombination combination) {
    unregisterHotkey(id);
    if (!connectToServer()) return HotkeyRegistration::impossible;
    const bool isOwn = std::any_of(hotkeys_.begin(), hotkeys_.end(), [&](const auto& entry) {
        return entry.second.combination == combination;
    });
    if (isOwn) return HotkeyRegistration::taken;
    Hotkey hotkey{combination, {}};
    const HotkeyRegistration outcome = grab(hotkey);
    if (outcome == HotkeyRegistration::registered) hotkeys_.emplace(id, std::move(hotkey));
    return outcome;
}

void X11GlobalHotkeys::unregisterHotkey(int id) {
    const auto found = hotkeys_.find(id);
    if (found == hotkeys_.end()) return;
    release(found->second);
    xcb_flush(connection_);
    hotkeys_.erase(found);
}

HotkeyRegistration X11GlobalHotkeys::grab(Hotkey& hotkey) {
    if (!keymap_) {
        keymap_.emplace(connection_);
        lockMask_ = keymap_->lockCombinations().back();
    }
    const auto modifiers = keymap_->modifiersOf(hotkey.combination.modifiers);
    if (!modifiers) return HotkeyRegistration::impossible;
    std::vector<xcb_void_cookie_t> cookies;
    for (const xcb_keycode_t keycode : keymap_->keycodesOf(hotkey.combination.keyCode)) {
        hotkey.grabs.push_back({keycode, *modifiers});
        for (const std::uint16_t locks : keymap_->lockCombinations())
            cookies.push_back(xcb_grab_key_checked(connection_, false, root_, *modifiers | locks,
                                                   keycode, XCB_GRAB_MODE_ASYNC,
                                                   XCB_GRAB_MODE_ASYNC));
    }
    if (cookies.empty()) return HotkeyRegistration::impossible;
    bool isRefused = false;
    for (const xcb_void_cookie_t cookie : cookies)
        if (XcbReply<xcb_generic_error_t>(xcb_request_check(connection_, cookie))) isRefused = true;
    if (!isRefused) return HotkeyRegistration::registered;
    release(hotkey);
    xcb_flush(connection_);
    hotkey.grabs.clear();
    return HotkeyRegistration::taken;
}

void X11GlobalHotkeys::release(const Hotkey& hotkey) {
    for (const Grab& each : hotkey.grabs)
        for (const std::uint16_t locks : keymap_->lockCombinations())
            xcb_ungrab_key(connection_, each.keycode, root_, each.modifiers | locks);
}

void X11GlobalHotkeys::regrab() {
    for (auto& [id, hotkey] : hotkeys_) {
        release(hotkey);
        hotkey.grabs.clear();
    }
    keymap_.reset();
    // One that the new layout has no key for comes back with another layout.
    for (auto& [id, hotkey] : hotkeys_)
        grab(hotkey);
}

bool X11GlobalHotkeys::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
    if (type != "xcb_generic_event_t") return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    constexpr int sentByClient = 0x80;
    const int number = event->response_type & ~sentByClient;
    if (number == XCB_KEY_PRESS || number == XCB_KEY_RELEASE) {
        const auto& press = *reinterpret_cast<const xcb_key_press_event_t*>(event);
        if (press.event != root_) return false;
        if (number == XCB_KEY_PRESS) onPress(press);
        return true;
    }
    // The extension's events say their kind in the second byte.
    constexpr int newKeyboard = 0;
    constexpr int mapChanged = 1;
    const bool isNewMap =
        number == keyboardEvent_ && (event->pad0 == newKeyboard || event->pad0 == mapChanged);
    if ((isNewMap || number == XCB_MAPPING_NOTIFY) && !hotkeys_.empty()) keymapTimer_.start();
    return false;
}

void X11GlobalHotkeys::onPress(const xcb_key_press_event_t& event) {
    xcb_ungrab_keyboard(connection_, XCB_CURRENT_TIME);
    xcb_flush(connection_);
    if (event.detail == heldKey_) return;
    heldKey_ = event.detail;
    isReleased_ = false;
    heldTimer_.start();
    constexpr std::uint16_t allModifiers = 0xff;
    const std::uint16_t modifiers = event.state & allModifiers & ~lockMask_;
    for (const auto& [id, hotkey] : hotkeys_)
        for (const Grab& each : hotkey.grabs) {
            if (each.keycode != event.detail || each.modifiers != modifiers) continue;
            // Later: Qt is in the middle of an event, and whoever hears of it may change the list.
            QMetaObject::invokeMethod(
                this, [this, pressedID = id] { Q_EMIT pressed(pressedID); }, Qt::QueuedConnection);
            return;
        }
}

void X11GlobalHotkeys::lookForRelease() {
    const XcbReply<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection_, xcb_query_keymap(connection_), nullptr));
    constexpr int bitsPerByte = 8;
    const bool isDown =
        reply && (reply->keys[heldKey_ / bitsPerByte] >> (heldKey_ % bitsPerByte) & 1) != 0;
    // The answer may have overtaken repeats that Qt has read and not reported yet, so that the key
    // counts as held until the next look.
    if (!std::exchange(isReleased_, !isDown) || isDown) return;
    heldKey_ = 0;
    heldTimer_.stop();
}

void installX11KeyLookup() {
    setUnshiftedKeyLookup([](const QKeyEvent& event) -> std::optional<int> {
        xcb_connection_t* connection = qtConnection();
        const quint32 keycode = event.nativeScanCode();
        constexpr quint32 lastKeycode = 255;
        if (!connection || keycode == 0 || keycode > lastKeycode) return std::nullopt;
        return X11Keymap(connection).codeOf(static_cast<xcb_keycode_t>(keycode));
    });
}

}  // namespace kestrio
