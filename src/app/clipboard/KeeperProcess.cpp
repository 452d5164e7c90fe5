#include "app/clipboard/KeeperProcess.h"

#include "core/Descriptor.h"
#include "platform/PasteboardError.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <QFile>
#include <cerrno>
#include <csignal>
#include <cstring>

namespace kestrio {

namespace {

constexpr int seals = F_SEAL_SEAL | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;
constexpr char takenOver = 'T';

PasteboardError notKept(int reason) {
    return PasteboardError(PasteboardError::Case::notKept,
                           QString::fromLocal8Bit(std::strerror(reason)));
}

// Nobody can change it any more, which is also how the other process knows it for ours.
int sealedMemory(const QByteArray& contents) {
    Descriptor memory(::memfd_create("kestrio-clipboard", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (memory.number() < 0) throw notKept(errno);
    QFile file;
    if (!file.open(memory.number(), QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        file.write(contents) != contents.size() || ::lseek(memory.number(), 0, SEEK_SET) != 0 ||
        ::fcntl(memory.number(), F_ADD_SEALS, seals) != 0) {
        throw notKept(errno);
    }
    return memory.release();
}

/// With nothing of this process but what it is given, so that nobody who waits for the end of what
/// this one holds open waits for that one.
pid_t spawn(int contents, int answer) {
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);
    posix_spawn_file_actions_adddup2(&files, contents, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, answer, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
    posix_spawn_file_actions_addchdir_np(&files, "/");
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    char name[] = "kestrio";
    char verb[] = "hold-clipboard";
    char* arguments[] = {name, verb, nullptr};
    pid_t process = 0;
    // Not by its path, where an update may have put another version.
    const int failure =
        ::posix_spawn(&process, "/proc/self/exe", &files, &attributes, arguments, environ);
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
    if (failure != 0) throw notKept(failure);
    return process;
}

void replaceByNothing(int descriptor) {
    const Descriptor nothing(::open("/dev/null", O_RDWR | O_CLOEXEC));
    ::dup2(nothing.number(), descriptor);
}

}  // namespace

KeeperProcess::KeeperProcess(const QByteArray& contents) {
    const Descriptor memory(sealedMemory(contents));
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw notKept(errno);
    Descriptor readEnd(ends[0]);
    const Descriptor writeEnd(ends[1]);
    process_ = spawn(memory.number(), writeEnd.number());
    answer_ = readEnd.release();
}

KeeperProcess::~KeeperProcess() {
    ::close(answer_);
    // One that goes on becomes a child of the system's first process when this one ends.
    ::waitpid(process_, nullptr, WNOHANG);
}

bool KeeperProcess::hasTakenOver() const {
    char answer = 0;
    return ::read(answer_, &answer, 1) == 1 && answer == takenOver;
}

QByteArray takeInheritedContents() {
    if (::fcntl(STDIN_FILENO, F_GET_SEALS) != seals) return {};
    QFile file;
    if (!file.open(STDIN_FILENO, QIODevice::ReadOnly | QIODevice::Unbuffered)) return {};
    const QByteArray contents = file.readAll();
    replaceByNothing(STDIN_FILENO);
    return contents;
}

void answerTakenOver() {
    // The other process may have been killed.
    std::signal(SIGPIPE, SIG_IGN);
    [[maybe_unused]] const auto written = ::write(STDOUT_FILENO, &takenOver, 1);
    // The end of the pipe shows the other process that there is nothing to wait for.
    replaceByNothing(STDOUT_FILENO);
}

}  // namespace kestrio
