#pragma once

#include "app/flows/FlowFailure.h"
#include "core/JsonLines.h"

namespace kestrio {

/// The longest line of a conversation between two starts of the program, in bytes.
inline constexpr qsizetype longestMessage = qsizetype{64} * 1024;

/// How a request went; the numbers are exit statuses.
struct InstanceReply {
    int status = 0;
    QString message;  ///< why it failed, for users
    QString path;     ///< the file that was written; may be empty

    static InstanceReply done(QString path = {}) { return {0, {}, std::move(path)}; }
    static InstanceReply failed(QString message) {
        return {static_cast<int>(ExitStatus::failed), std::move(message), {}};
    }
    static InstanceReply failed(const FlowFailure& failure) {
        return {static_cast<int>(failure.exitStatus()), failure.reason(), {}};
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

}  // namespace kestrio
