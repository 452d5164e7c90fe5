#pragma once

#include "app/flows/ExitStatus.h"
#include "core/Error.h"

#include <QStringList>
#include <optional>

class QCommandLineParser;

namespace kestrio {

/// The command line makes no sense; nothing was done.
class UsageError : public Error {
  public:
    explicit UsageError(QString message) : message_(std::move(message)) {}
    QString errorDescription() const override { return message_; }

  private:
    QString message_;
};

/// What of the desktop a verb works with.
enum class DisplayNeed {
    none,     ///< works without a display
    gui,      ///< a display, for what is no window
    windows,  ///< windows and panels
};

/// A verb of the command line, as in "kestrio render".
struct CliVerb {
    const char* name;
    const char* summary;  ///< null for verbs that users do not need
    /// `arguments` follow the verb. Needs the application that `display` says; may run its event
    /// loop.
    ExitStatus (*run)(const QStringList& arguments);
    DisplayNeed display = DisplayNeed::none;
    /// Tried first, with an application that has no display: lets the running program do it, and
    /// returns nothing where none runs. May be null.
    std::optional<ExitStatus> (*handOver)(const QStringList& arguments) = nullptr;
};

/// What of the desktop the verb in these arguments works with.
DisplayNeed displayNeed(const QStringList& arguments);

/// Lets the running program do what the arguments ask for; nothing where this process has to. Needs
/// an application.
std::optional<ExitStatus> handOverCommandLine(const QStringList& arguments);

/// Runs the verb that the first argument names, without arguments the resident program. "--help"
/// prints the verbs, "--version" the version; both have a short form.
ExitStatus runCommandLine(const QStringList& arguments);

/// Prints the options of a verb, headed by how it is used ("edit [options] [FILE]"): Qt heads its
/// own help with the path of the program, which knows nothing of verbs. Throws Error where standard
/// output cannot be written to.
void printHelp(const QCommandLineParser& parser, const char* usage);

/// Writes to standard output; false where that cannot be written to, which is reported.
bool printDocument(const QByteArray& text);

/// Writes a line to standard output with the name of a file in the place of "%1". False as above.
bool printPath(const QString& path, const QString& sentence = QStringLiteral("%1"));

/// One line on standard error, headed by the program's name.
void printError(const QString& message);

}  // namespace kestrio
