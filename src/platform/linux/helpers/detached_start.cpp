#include "platform/linux/helpers/detached_start.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <utility>

#include "platform/files/file_descriptor.h"
#include "platform/linux/helpers/process_list.h"

namespace dunvey {
namespace {

constexpr int kFirstUnshared = STDERR_FILENO + 1;

bool CloseRangeOnExec() {
#if defined(SYS_close_range)
    constexpr unsigned kCloseOnExec = 1U << 2;  // since Linux 5.11
    return syscall(SYS_close_range, kFirstUnshared, ~0U, kCloseOnExec) == 0;
#else
    return false;
#endif
}

/// Has everything but the standard streams closed by a start that succeeds.
void CloseInheritedOnExec() {
    if (CloseRangeOnExec()) return;
    DIR* entries = opendir("/proc/self/fd");
    while (const dirent* entry = entries != nullptr ? readdir(entries) : nullptr) {
        const int descriptor = std::atoi(entry->d_name);  // 0 for "." and ".."
        if (descriptor >= kFirstUnshared) fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    }
    if (entries != nullptr) closedir(entries);
}

void ResetSignals() {
    for (int number = 1; number < NSIG; ++number)
        std::signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

bool EnterHomeFolder() {
    const char* home = std::getenv("HOME");
    return (home != nullptr && home[0] == '/' && chdir(home) == 0) || chdir("/") == 0;
}

/// The child's part. Ends in the new program, or writes its errno to the pipe.
[[noreturn]] void BecomeProgram(char* const* arguments, int emptyDevice, int problemPipe) {
    setsid();
    ResetSignals();
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        dup2(emptyDevice, stream);
    CloseInheritedOnExec();
    if (EnterHomeFolder()) Uninterrupted([arguments] { return execv(arguments[0], arguments); });
    const int error = errno;
    WriteFully(problemPipe, {reinterpret_cast<const char*>(&error), sizeof error});
    _exit(EXIT_FAILURE);
}

/// The kernel closes the pipe a little before the new program's words can be read. Without them a
/// script looks like its bare interpreter, and whoever asks next whether it runs is told no.
void WaitUntilVisible(pid_t child) {
    constexpr timespec kPause{0, 20'000};
    const ProcessList processes;
    siginfo_t ended{};
    for (int i = 0; i < 5'000 && !processes.HasWords(child); ++i) {
        const int waited =
            waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOHANG | WNOWAIT);
        if (waited != 0 || ended.si_pid == child) return;
        nanosleep(&kPause, nullptr);
    }
}

/// Gives back an errno once the child has become the program or has failed.
int OutcomeOf(pid_t child, FileDescriptor problems) {
    int error = 0;
    const ssize_t count = ReadFully(problems.Get(), reinterpret_cast<char*>(&error), sizeof error);
    // Without a message it runs, and mustn't be waited for.
    if (count != static_cast<ssize_t>(sizeof error)) {
        WaitUntilVisible(child);
        return 0;
    }
    Uninterrupted([child] { return waitpid(child, nullptr, 0); });
    return error;
}

/// Takes the places of missing standard streams, so that no other descriptor gets one of them.
/// Returns the empty device on a place behind them.
FileDescriptor OpenEmptyDevice() {
    int descriptor = Uninterrupted([] { return open("/dev/null", O_RDWR | O_CLOEXEC); });
    while (descriptor >= 0 && descriptor < kFirstUnshared)
        descriptor = Uninterrupted([descriptor] { return dup(descriptor); });
    return FileDescriptor(descriptor);
}

/// As fork does, but a machine that is short of processes or memory gets some moments to recover.
pid_t ForkPatiently() {
    constexpr timespec kPause{0, 50'000'000};
    pid_t child = Uninterrupted(&fork);
    for (int i = 1; i < 4 && child < 0 && (errno == EAGAIN || errno == ENOMEM); ++i) {
        nanosleep(&kPause, nullptr);
        child = Uninterrupted(&fork);
    }
    return child;
}

}  // namespace

int StartDetached(const std::string& path, const std::vector<std::string>& words) {
    std::vector<char*> arguments{const_cast<char*>(path.c_str())};
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    const FileDescriptor emptyDevice = OpenEmptyDevice();
    int ends[2];
    if (!emptyDevice || pipe2(ends, O_CLOEXEC) != 0) return errno;
    FileDescriptor problems(ends[0]);
    FileDescriptor problemPipe(ends[1]);
    const pid_t child = ForkPatiently();
    if (child < 0) return errno;
    if (child == 0) BecomeProgram(arguments.data(), emptyDevice.Get(), problemPipe.Get());
    problemPipe.Close();
    return OutcomeOf(child, std::move(problems));
}

}  // namespace dunvey
