#pragma once

#include "core/Error.h"
#include "core/Task.h"

#include <QIcon>
#include <QString>
#include <vector>

namespace kestrio {

/// A file could not be handed to another program.
class SharingError : public Error {
  public:
    enum class Case {
        noMailProgram,
        programGone,  ///< it was uninstalled, or is no program of the desktop
        notStarted,
    };

    /// `program` is its name for users; nothing of a mail program.
    explicit SharingError(Case which, QString program = {})
        : which_(which), program_(std::move(program)) {}
    Case which() const { return which_; }
    QString errorDescription() const override;

  private:
    Case which_;
    QString program_;
};

/// A program that opens a kind of file.
struct SharingProgram {
    QString id;    ///< the desktop's, stable
    QString name;  ///< for users, in their language
    QIcon icon;    ///< null where it has none
};

/// Hands files to other programs. Main thread only.
class Sharing {
  public:
    virtual ~Sharing() = default;

    /// The programs that the desktop associates with a MIME type, the preferred one first, without
    /// this one.
    virtual std::vector<SharingProgram> programsFor(const QString& mimeType) const = 0;
    /// Opens a file, by absolute path, with one of them. Throws SharingError.
    virtual void openWith(const QString& programId, const QString& path) = 0;
    virtual bool canEmail() const = 0;
    /// Opens a new message of the user's mail program with this file attached, and ends once it is
    /// open. Throws SharingError.
    virtual Task<> email(QString path, QString subject) = 0;
};

}  // namespace kestrio
