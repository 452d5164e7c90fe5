#pragma once

#include "platform/linux/x11/SelectionOwner.h"
#include "support/Waiting.h"

#include <QProcess>
#include <csignal>

#include <gtest/gtest.h>

namespace kestrio {

/// Another program that has copied something, and has the clipboard until it ends.
class OtherProgram {
  public:
    OtherProgram(const char* format, const QByteArray& contents) {
        const auto before = ownerOfSelection("CLIPBOARD");
        process_.start(
            QStringLiteral("xclip"),
            {QStringLiteral("-quiet"), QStringLiteral("-selection"), QStringLiteral("clipboard"),
             QStringLiteral("-t"), QString::fromLatin1(format)});
        process_.write(contents);
        process_.closeWriteChannel();
        EXPECT_TRUE(waitUntil([before] { return ownerOfSelection("CLIPBOARD") != before; }));
    }

    ~OtherProgram() {
        process_.kill();
        process_.waitForFinished();
    }

    /// From now on it answers nobody.
    void fallSilent() const { ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP); }

  private:
    QProcess process_;
};

}  // namespace kestrio
