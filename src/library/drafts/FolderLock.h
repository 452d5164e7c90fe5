#pragma once

#include <QString>
#include <memory>

namespace kestrio {

/// Marks a folder as this process' own: a lock on a file in it that belongs to an open file, so
/// that it holds against other holders in the same process too and goes with the process, however
/// that ends. Renaming the folder keeps the lock.
class FolderLock {
  public:
    static constexpr char fileName[] = "lock";

    /// Null where the folder is gone, belongs to another holder or cannot be locked; `errno` then
    /// says why.
    static std::unique_ptr<FolderLock> take(const QString& folder);
    ~FolderLock();

    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

  private:
    explicit FolderLock(int descriptor) : descriptor_(descriptor) {}

    int descriptor_;
};

}  // namespace kestrio
