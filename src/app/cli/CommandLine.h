#pragma once

#include "core/Error.h"

#include <QStringList>

namespace kestrio {

/// What the process tells its caller when it ends.
enum class ExitStatus { done = 0, failed = 1, wrongUsage = 2, cancelled = 3 };

/// The command line makes no sense; nothing was done.
class UsageError : public Error {
  public:
    explicit UsageError(QString message) : message_(std::move(message)) {}
    QString errorDescription() const override { return message_; }

  private:
    QString message_;
};

/// A verb of the command line, as in "kestrio render".
struct CliVerb {
    const char* name;
    const char* summary;
    /// `arguments` follow the verb. Needs a GUI application; may run its event loop.
    ExitStatus (*run)(const QStringList& arguments);
    bool opensWindows = false;
};

/// Whether these arguments name a verb that opens windows.
bool needsDisplay(const QStringList& arguments);

/// Runs the verb that the first argument names. Without arguments, and for "--help", tells the
/// verbs; "--version" tells the version.
ExitStatus runCommandLine(const QStringList& arguments);

/// Writes to standard output; false where that cannot be written to.
bool printDocument(const QByteArray& text);

/// One line on standard error, headed by the program's name.
void printError(const QString& message);

}  // namespace kestrio
