#pragma once

#include <sys/types.h>
#include <QByteArray>

namespace kestrio {

/// A process of this program, "hold-clipboard", that inherits contents in memory, so that no file
/// is left behind whichever process is killed. It goes on when this object ends.
class KeeperProcess {
  public:
    /// Starts it. Throws PasteboardError::notKept.
    explicit KeeperProcess(const QByteArray& contents);
    ~KeeperProcess();

    KeeperProcess(const KeeperProcess&) = delete;
    KeeperProcess& operator=(const KeeperProcess&) = delete;

    /// Readable once it has answered or ended.
    int answerDescriptor() const { return answer_; }
    /// Whether it has taken over; waits where answerDescriptor() is not readable.
    bool hasTakenOver() const;

  private:
    int answer_ = -1;
    pid_t process_ = 0;
};

/// In the process that was started, once: what it has inherited; empty where it was started by
/// anybody else.
QByteArray takeInheritedContents();

/// In the process that was started: answers the one before that it has taken over.
void answerTakenOver();

}  // namespace kestrio
