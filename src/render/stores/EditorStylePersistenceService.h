#pragma once

#include "core/UserDefaults.h"
#include "render/style/EditorStyleSettings.h"

#include <memory>

namespace kestrio {

/// Keeps the style that was used last.
class EditorStylePersistenceServiceProtocol {
  public:
    virtual ~EditorStylePersistenceServiceProtocol() = default;

    /// The style used last, or nothing where none is stored or it cannot be read.
    virtual std::optional<EditorStyleSettings> load() = 0;
    /// Soon, in the background; load() gives it at once. A style that cannot be encoded is dropped
    /// silently.
    virtual void save(const EditorStyleSettings& style) = 0;
};

/// Keeps the style as one JSON value at "com.kestrio.editorStyleSettings".
class EditorStylePersistenceService : public EditorStylePersistenceServiceProtocol {
  public:
    explicit EditorStylePersistenceService(std::shared_ptr<UserDefaults> userDefaults)
        : userDefaults_(std::move(userDefaults)),
          queue_(QStringLiteral("com.kestrio.stylepersistence")) {}

    std::optional<EditorStyleSettings> load() override;
    void save(const EditorStyleSettings& style) override;

  private:
    std::shared_ptr<UserDefaults> userDefaults_;
    SerialQueue queue_;  ///< where styles are encoded, pictures of many megabytes among them
};

}  // namespace kestrio
