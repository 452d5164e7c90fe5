#pragma once

#include "platform/FileDialogs.h"

namespace kestrio {

/// Panels that a test answers. Each request waits until answer() or dismiss(), which go to the
/// latest one.
class ScriptedFileDialogs : public FileDialogs {
  public:
    std::vector<OpenPanelRequest> openRequests;
    std::vector<SavePanelRequest> saveRequests;

    ~ScriptedFileDialogs() override { dismiss(); }

    bool isPending() const { return pending_.has_value(); }

    /// The user chooses this path, to which a save panel appends the first type's suffix.
    void answer(const QString& path) {
        const auto pending = std::exchange(pending_, std::nullopt);
        if (pending) pending->succeed(path);
    }

    void dismiss() {
        const auto pending = std::exchange(pending_, std::nullopt);
        if (pending) pending->succeed(std::nullopt);
    }

    Task<std::optional<QString>> chooseOpen(OpenPanelRequest request,
                                            std::stop_token stop) override {
        openRequests.push_back(std::move(request));
        const auto chosen = pend(std::move(stop));
        co_return co_await chosen;
    }

    Task<std::optional<QString>> chooseFolder(OpenPanelRequest request,
                                              std::stop_token stop) override {
        openRequests.push_back(std::move(request));
        const auto chosen = pend(std::move(stop));
        co_return co_await chosen;
    }

    Task<std::optional<QString>> chooseSave(SavePanelRequest request,
                                            std::stop_token stop) override {
        const auto types = request.types;
        saveRequests.push_back(std::move(request));
        const auto chosen = pend(std::move(stop));
        const std::optional<QString> path = co_await chosen;
        if (!path || types.empty()) co_return path;
        co_return withSuffix(*path, types.front(), types);
    }

  private:
    Completion<std::optional<QString>> pend(std::stop_token stop) {
        dismiss();
        pending_.emplace(std::move(stop));
        return *pending_;
    }

    std::optional<Completion<std::optional<QString>>> pending_;
};

}  // namespace kestrio
