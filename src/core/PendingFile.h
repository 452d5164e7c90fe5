#pragma once

#include "core/Descriptor.h"

#include <sys/types.h>
#include <QByteArray>
#include <QByteArrayView>

namespace kestrio {

/// A call of the system failed; `code` is its number for the reason.
struct SystemError {
    int code;
};

/// A file that is being written in its folder and has no name yet, so that nothing is left of it
/// when the process dies. It gets a hidden name for the moment in which it replaces another file,
/// and from the start on file systems without nameless files. The name goes with this object; one
/// that a process left which was killed just then goes with the next writing of the same file.
/// Blocks; any thread. All members throw SystemError.
class PendingFile {
  public:
    /// `target` is the name that it is written for; `mode` less the process's mask are its
    /// permissions.
    PendingFile(const QByteArray& target, mode_t mode);
    ~PendingFile();
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    void write(QByteArrayView bytes);
    /// As the file has them that this one replaces; what the process may not set stays.
    void setOwnerAndMode(uid_t owner, gid_t group, mode_t mode);
    /// To the disk, past all caches.
    void flush();

    /// Gives it this name; false where the name is taken. `path` lies in the folder of `target`.
    bool takeName(const QByteArray& path);
    /// Gives it this name in place of the file that has it.
    void renameOver(const QByteArray& path);

  private:
    void openHidden(mode_t mode);
    void linkHidden();
    /// Calls `take` with hidden names until one of them was free.
    template <typename Take>
    void takeHiddenName(Take take);
    bool linkTo(const QByteArray& path);
    bool renameToFree(const QByteArray& path);
    void flushFolder() const;

    QByteArray folder_;
    QByteArray hiddenStem_;  ///< of the hidden names for the target
    Descriptor file_;
    QByteArray hiddenName_;  ///< empty where it has none
};

}  // namespace kestrio
