#pragma once

#include "platform/ScreenGrabber.h"

#include <functional>
#include <map>
#include <optional>

namespace kestrio {

/// A screen that a test paints. Grabs are answered by what it shows at that moment; while `isHeld`
/// they wait for answerAll().
class ScriptedScreenGrabber : public ScreenGrabber {
  public:
    QImage desktop;                                ///< its top left is the desktop's, in pixels
    std::map<quint64, QImage> windows;             ///< by identifier
    std::optional<ScreenGrabError::Case> failure;  ///< thrown by every answer where it is set
    bool isHeld = false;
    std::vector<QRect> rectangles;   ///< every one asked for
    std::vector<quint64> windowIDs;  ///< the same

    ~ScriptedScreenGrabber() override { answerAll(); }

    int pendingCount() const { return static_cast<int>(pending_.size()); }

    void answerAll() {
        for (const Pending& each : std::exchange(pending_, {}))
            each.done.run(each.work);
    }

    Task<QImage> grabRectangle(QRect pixels, std::stop_token stop) override {
        rectangles.push_back(pixels);
        const auto answered = pend([this, pixels] { return rectangle(pixels); }, std::move(stop));
        co_return co_await answered;
    }

    Task<QImage> grabWindow(quint64 windowID, std::stop_token stop) override {
        windowIDs.push_back(windowID);
        const auto answered = pend([this, windowID] { return window(windowID); }, std::move(stop));
        co_return co_await answered;
    }

  private:
    struct Pending {
        Completion<QImage> done;
        std::function<QImage()> work;
    };

    Completion<QImage> pend(std::function<QImage()> work, std::stop_token stop) {
        Completion<QImage> done(std::move(stop));
        pending_.push_back({done, std::move(work)});
        if (!isHeld) answerAll();
        return done;
    }

    QImage rectangle(QRect pixels) const {
        if (failure) throw ScreenGrabError(*failure);
        const QRect cut = pixels & desktop.rect();
        if (cut.isEmpty()) throw ScreenGrabError(ScreenGrabError::Case::unreadable);
        return desktop.copy(cut).convertToFormat(QImage::Format_RGB32);
    }

    QImage window(quint64 windowID) const {
        if (failure) throw ScreenGrabError(*failure);
        const auto found = windows.find(windowID);
        if (found == windows.end()) throw ScreenGrabError(ScreenGrabError::Case::windowGone);
        return found->second;
    }

    std::vector<Pending> pending_;
};

}  // namespace kestrio
