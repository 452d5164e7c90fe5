#pragma once

#include "core/Json.h"
#include "core/UserDefaults.h"

#include <memory>

namespace kestrio {

/// Keeps one JSON value for each annotation tool; what is in it is the tool's own business.
class TemplateService {
  public:
    explicit TemplateService(std::shared_ptr<UserDefaults> userDefaults)
        : userDefaults_(std::move(userDefaults)) {}

    /// The key of a tool's settings: "tool_" and the tool's name, such as "tool_arrow".
    static QString storageKey(const QString& tool) { return QStringLiteral("tool_") + tool; }

    /// Nothing where none was saved or what is stored cannot be read as a T.
    template <typename T>
    std::optional<T> load(const QString& tool) const {
        const auto data = userDefaults_->data(storageKey(tool));
        if (!data) return std::nullopt;
        try {
            return decodeJsonText<T>(*data);
        } catch (const JsonError&) {
            return std::nullopt;
        }
    }

    /// Throws JsonError for settings that JSON cannot hold.
    template <typename T>
    void save(const QString& tool, const T& settings) {
        userDefaults_->setData(storageKey(tool), encodeJsonText(settings));
    }

  private:
    std::shared_ptr<UserDefaults> userDefaults_;
};

}  // namespace kestrio
