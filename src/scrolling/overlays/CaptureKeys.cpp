#include "scrolling/overlays/CaptureKeys.h"

#include <functional>

namespace kestrio {

namespace {

struct CaptureKey {
    int id;  // far from those of the hotkeys that users choose, which count from 1
    Qt::Key key;
    void (CaptureKeys::*signal)();
};

constexpr CaptureKey keys[] = {
    {1101, Qt::Key_Return, &CaptureKeys::confirmed},
    {1102, Qt::Key_Enter, &CaptureKeys::confirmed},
    {1103, Qt::Key_Escape, &CaptureKeys::cancelled},
};

}  // namespace

CaptureKeys::CaptureKeys(std::shared_ptr<GlobalHotkeys> hotkeys, QObject* parent)
    : QObject(parent), hotkeys_(std::move(hotkeys)) {
    for (const CaptureKey& each : keys)
        hotkeys_->registerHotkey(each.id, *combinationOf(QKeyCombination(each.key)));
    connect(hotkeys_.get(), &GlobalHotkeys::pressed, this, [this](int id) {
        for (const CaptureKey& each : keys)
            if (each.id == id) std::invoke(each.signal, this);
    });
}

CaptureKeys::~CaptureKeys() {
    for (const CaptureKey& each : keys)
        hotkeys_->unregisterHotkey(each.id);
}

}  // namespace kestrio
