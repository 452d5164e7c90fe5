#pragma once

#include "core/UserDefaults.h"
#include "settings/AppSettings.h"

#include <memory>
#include <optional>

namespace kestrio {

/// Keeps the preferences.
class AppSettingsServiceProtocol {
  public:
    virtual ~AppSettingsServiceProtocol() = default;

    /// The stored preferences, clamped to their ranges. Never fails: what cannot be read is
    /// default.
    virtual AppSettings load() = 0;
    /// Stores the preferences as given, unclamped. A failure to write is silent.
    virtual void save(const AppSettings& settings) = 0;
};

/// Keeps the preferences as one JSON value at "com.kestrio.appSettings" and caches them. Main
/// thread.
class AppSettingsService : public AppSettingsServiceProtocol {
  public:
    explicit AppSettingsService(std::shared_ptr<UserDefaults> userDefaults)
        : userDefaults_(std::move(userDefaults)) {}

    AppSettings load() override;
    void save(const AppSettings& settings) override;

  private:
    AppSettings read() const;

    std::shared_ptr<UserDefaults> userDefaults_;
    std::optional<AppSettings> cachedSettings_;
};

}  // namespace kestrio
