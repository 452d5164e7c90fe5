#pragma once

#include "app/capture/CaptureRequest.h"
#include "app/flows/ExitStatus.h"
#include "core/Json.h"

namespace kestrio {

inline constexpr EnumTable<CaptureKind, 3> captureKinds = {{
    {CaptureKind::region, "region"},
    {CaptureKind::window, "window"},
    {CaptureKind::display, "display"},
}};
constexpr const auto& enumTable(CaptureKind) {
    return captureKinds;
}

/// What other programs may ask for in advance.
inline constexpr EnumTable<CaptureAction, 4> requestableActions = {{
    {CaptureAction::edit, "edit"},
    {CaptureAction::copy, "copy"},
    {CaptureAction::save, "save"},
    {CaptureAction::pin, "pin"},
}};
constexpr const auto& enumTable(CaptureAction) {
    return requestableActions;
}

enum class InstanceVerb { activate, edit, capture };

inline constexpr EnumTable<InstanceVerb, 3> instanceVerbs = {{
    {InstanceVerb::activate, "activate"},
    {InstanceVerb::edit, "edit"},
    {InstanceVerb::capture, "capture"},
}};
constexpr const auto& enumTable(InstanceVerb) {
    return instanceVerbs;
}

/// What one start of the program asks of the one that runs. Paths are absolute.
struct InstanceRequest {
    InstanceVerb verb = InstanceVerb::activate;
    /// To edit; the clipboard's picture where empty.
    QString file;
    double density = 1;  ///< pixels a point of that picture
    CaptureKind kind = CaptureKind::region;
    int delay = 0;
    std::optional<CaptureAction> action;
    QString output;
    /// Nobody reads what the asking program writes, so failures are reported on the desktop too.
    bool isUnattended = false;

    CaptureRequest captureRequest() const { return {kind, delay, action, output}; }

    static constexpr auto jsonFields() {
        using R = InstanceRequest;
        return std::tuple(jsonField("verb", &R::verb), missableField("file", &R::file),
                          missableField("density", &R::density), missableField("kind", &R::kind),
                          missableField("delay", &R::delay), missableField("action", &R::action),
                          missableField("output", &R::output),
                          missableField("isUnattended", &R::isUnattended));
    }
};

/// How it went; the numbers are exit statuses.
struct InstanceReply {
    int status = 0;
    QString message;  ///< why it failed, for users
    QString path;     ///< the file that was written; may be empty

    static InstanceReply done(QString path = {}) { return {0, {}, std::move(path)}; }
    static InstanceReply failed(QString message) {
        return {static_cast<int>(ExitStatus::failed), std::move(message), {}};
    }
    static InstanceReply wrongUsage(QString message) {
        return {static_cast<int>(ExitStatus::wrongUsage), std::move(message), {}};
    }
    static InstanceReply cancelled() { return {static_cast<int>(ExitStatus::cancelled), {}, {}}; }

    static constexpr auto jsonFields() {
        using R = InstanceReply;
        return std::tuple(jsonField("status", &R::status), defaultedField("message", &R::message),
                          defaultedField("path", &R::path));
    }
};

/// One line of a conversation, with its end.
template <typename Message>
QByteArray messageLine(const Message& message) {
    return encodeJsonText(message) + '\n';
}

}  // namespace kestrio
