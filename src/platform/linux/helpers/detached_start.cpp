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

#include "platform/files/file_descriptor.h"
#include "platform/files/path.h"
#include "platform/linux/helpers/process_list.h"
#include "platform/processes/process_setup.h"
#include "platform/processes/shortage.h"
#include "platform/processes/spawn.h"

namespace dunvey {
namespace {

constexpr int kFirstUnshared = STDERR_FILENO + 1;

void Report(const Pipe& pipe, int value) {
    WriteFully(pipe.writing.Get(), {reinterpret_cast<const char*>(&value), sizeof value});
}

/// Waits for a report; 0 if the pipe is closed without one.
int ReadReport(Pipe& pipe) {
    pipe.writing.Close();
    int value = 0;
    const ssize_t count =
        ReadFully(pipe.reading.Get(), reinterpret_cast<char*>(&value), sizeof value);
    return count == sizeof value ? value : 0;
}

bool CloseRangeOnExec() {
#if defined(SYS_close_range)
    constexpr unsigned kCloseOnExec = 1U << 2;  // since Linux 5.11
    return syscall(SYS_close_range, kFirstUnshared, ~0U, kCloseOnExec) == 0;
#else
    return false;
#endif
}

/// Sets close-on-exec on all descriptors but the standard streams.
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

/// Runs in the second child. Executes the program, which closes the pipe, or reports the errno.
[[noreturn]] void BecomeProgram(char* const* arguments, int nullDevice, const Pipe& problem) {
    setpgid(0, 0);
    ResetSignals();
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        dup2(nullDevice, stream);
    CloseInheritedOnExec();
    if (chdir(HomePath().c_str()) == 0 || chdir("/") == 0)
        Uninterrupted([arguments] { return execv(arguments[0], arguments); });
    Report(problem, errno);
    _exit(EXIT_FAILURE);
}

/// Sets the id of a new process, 0 in that process. Returns 0 or the errno.
int Fork(pid_t& child) {
    return RetryOnShortage([&child] {
        child = fork();
        return child < 0 ? errno : 0;
    });
}

void WaitForEnd(pid_t child) {
    Uninterrupted([child] { return waitpid(child, nullptr, 0); });
}

/// Runs in the first child, which leads the new session. Starts the second, which doesn't lead it
/// and so can't acquire a terminal by opening one. Reports its process id, or the negative errno.
[[noreturn]] void LeadSession(char* const* arguments, int nullDevice, const Pipe& outcome) {
    setsid();
    Pipe problem;
    pid_t program = 0;
    int error = MakePipe(problem);
    if (error == 0) error = Fork(program);
    if (error == 0 && program == 0) BecomeProgram(arguments, nullDevice, problem);
    if (error == 0) {
        error = ReadReport(problem);
        if (error != 0) WaitForEnd(program);
    }
    Report(outcome, error == 0 ? program : -error);
    _exit(EXIT_SUCCESS);
}

/// The pipe closes shortly before the new program's arguments can be read. Without them a script
/// looks like its interpreter, and the next `open` would start it again.
void WaitForArguments(pid_t program) {
    constexpr timespec kPause{0, 20'000};
    for (int i = 0; i < 5'000 && ProcessList::Arguments(program).empty(); ++i) {
        // The program of a process that has ended can't be read.
        if (ProcessList::Program(program).empty()) return;
        nanosleep(&kPause, nullptr);
    }
}

}  // namespace

int StartDetached(const std::string& path, const std::vector<std::string>& arguments) {
    std::vector<char*> pointers{const_cast<char*>(path.c_str())};
    for (const std::string& argument : arguments)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);

    const FileDescriptor nullDevice = OpenNullDevice();
    if (!nullDevice) return errno;
    Pipe outcome;
    if (const int error = MakePipe(outcome)) return error;
    pid_t leader = 0;
    if (const int error = Fork(leader)) return error;
    if (leader == 0) LeadSession(pointers.data(), nullDevice.Get(), outcome);
    const int result = ReadReport(outcome);
    WaitForEnd(leader);
    if (result == 0) return ECHILD;  // the leader was killed
    if (result > 0) WaitForArguments(result);
    return result > 0 ? 0 : -result;
}

}  // namespace dunvey
