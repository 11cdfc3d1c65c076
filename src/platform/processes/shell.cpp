#include "platform/processes/shell.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <vector>

#include "platform/files/anonymous_file.h"
#include "platform/files/file_descriptor.h"
#include "platform/processes/shell_environment.h"

namespace dunvey {
namespace {

// The kernel's limit for one argument is 131,072 bytes with its end mark.
constexpr size_t kArgumentLimit = 131'071;
// A quarter of the stack's size limit is what a command's arguments may take, up to 6 MiB.
constexpr rlim_t kStackForArguments = 24 * 1024 * 1024;
constexpr int kScriptDescriptor = 3;

/// Why a command was not run.
struct Hindrance {
    const char* what = nullptr;
    int error = 0;

    explicit operator bool() const { return error != 0; }
    /// Whether it may well be over in a moment.
    bool IsPassing() const {
        constexpr std::array kPassing = {EAGAIN, EINTR, EMFILE, ENFILE, ENOMEM};
        return std::find(kPassing.begin(), kPassing.end(), error) != kPassing.end();
    }
};

/// The command stands in it: for a launch it names the documents that weren't opened.
void Complain(const Hindrance& hindrance, const std::string& command) {
    std::fprintf(stderr, "Dunvey: %s: %s. This was not run: %s\n", hindrance.what,
                 std::strerror(hindrance.error), command.c_str());
}

/// Raises the limit of the stack's size, which commands inherit, and puts it back in the end.
class RoomForArguments {
 public:
    RoomForArguments() {
        changed_ = getrlimit(RLIMIT_STACK, &before_) == 0 && before_.rlim_cur < kStackForArguments;
        if (!changed_) return;
        rlimit raised = before_;
        raised.rlim_cur = std::min(before_.rlim_max, kStackForArguments);
        changed_ = setrlimit(RLIMIT_STACK, &raised) == 0;
    }
    ~RoomForArguments() {
        if (changed_) setrlimit(RLIMIT_STACK, &before_);
    }
    RoomForArguments(const RoomForArguments&) = delete;
    RoomForArguments& operator=(const RoomForArguments&) = delete;

 private:
    rlimit before_{};
    bool changed_ = false;
};

/// What the shell is started with: descriptors and signals.
class SpawnPlan {
 public:
    explicit SpawnPlan(int output) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
        posix_spawnattr_init(&attributes_);
        sigset_t set;
        sigemptyset(&set);
        posix_spawnattr_setsigmask(&attributes_, &set);
        sigfillset(&set);
        posix_spawnattr_setsigdefault(&attributes_, &set);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnPlan() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;

    void PassScript(int script) {
        posix_spawn_file_actions_adddup2(&actions_, script, kScriptDescriptor);
    }

    /// Returns 0 or the error.
    int Start(pid_t& process, std::vector<const char*> arguments) const {
        const std::vector<std::string> environment = ShellEnvironment();
        if (environment.empty()) return ENOENT;
        std::vector<char*> variables;
        variables.reserve(environment.size() + 1);
        for (const std::string& variable : environment) {
            variables.push_back(const_cast<char*>(variable.c_str()));
        }
        variables.push_back(nullptr);
        arguments.push_back(nullptr);
        return posix_spawn(&process, "/bin/sh", &actions_, &attributes_,
                           const_cast<char* const*>(arguments.data()), variables.data());
    }

 private:
    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
};

struct Pipe {
    FileDescriptor reading;
    FileDescriptor writing;
};

/// A double that is kept from commands and isn't 0, 1, 2 or the script's.
FileDescriptor Lifted(int descriptor) {
    return FileDescriptor(fcntl(descriptor, F_DUPFD_CLOEXEC, kScriptDescriptor + 1));
}

/// Returns 0 or the errno.
int MakePipe(Pipe& made) {
    std::array<int, 2> ends;
    if (pipe(ends.data()) != 0) return errno;
    const FileDescriptor low[] = {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
    made.reading = Lifted(ends[0]);
    if (!made.reading) return errno;
    made.writing = Lifted(ends[1]);
    return made.writing ? 0 : errno;
}

std::string ReadAll(int descriptor) {
    constexpr size_t kBlock = 1 << 16;
    std::string text;
    for (;;) {
        const size_t end = text.size();
        text.resize(end + kBlock);
        const ssize_t got = ReadFully(descriptor, text.data() + end, kBlock);
        text.resize(end + static_cast<size_t>(got > 0 ? got : 0));
        if (got < static_cast<ssize_t>(kBlock)) return text;
    }
}

Hindrance StartShell(const std::string& command, int output, pid_t& process) {
    constexpr const char* kNoShell = "The shell can't be started";
    SpawnPlan plan(output);
    if (command.size() <= kArgumentLimit) {
        return {kNoShell, plan.Start(process, {"sh", "-c", command.c_str()})};
    }
    const FileDescriptor made = MakeAnonymousFile(command);
    const FileDescriptor script = made ? Lifted(made.Get()) : FileDescriptor();
    if (!script) return {"A long command can't be kept", errno};
    plan.PassScript(script.Get());
    const RoomForArguments room;
    return {kNoShell, plan.Start(process, {"sh", "/dev/fd/3"})};
}

/// Returns when there is something to read, or the end of it.
void AwaitOutput(int descriptor, const std::function<void()>& whileWaiting) {
    constexpr int kMilliseconds = 50;
    pollfd wait{descriptor, POLLIN, 0};
    while (poll(&wait, 1, kMilliseconds) == 0)
        whileWaiting();
}

Hindrance Run(const std::string& command, const std::function<void()>& whileWaiting,
              std::string& result) {
    Pipe output;
    if (const int error = MakePipe(output)) return {"No pipe for the output of a command", error};
    pid_t process = 0;
    const Hindrance hindrance = StartShell(command, output.writing.Get(), process);
    if (hindrance) return hindrance;
    output.writing.Close();
    if (whileWaiting) AwaitOutput(output.reading.Get(), whileWaiting);
    result = ReadAll(output.reading.Get());
    // A command that goes on writing after a failed read would otherwise wait for ever.
    output.reading.Close();
    Uninterrupted([process] { return waitpid(process, nullptr, 0); });
    return {};
}

}  // namespace

void Shell::Execute(const std::string& command, const std::function<void()>& whileWaiting) {
    constexpr int kAttempts = 4;
    constexpr timespec kPause{0, 50'000'000};
    // A shortage that stays would otherwise make a long run crawl: each of its documents asks.
    constexpr int kPausesInARow = 40;
    static int pauses = kPausesInARow;
    result_.clear();
    Hindrance hindrance = Run(command, whileWaiting, result_);
    for (int i = 1; i < kAttempts && hindrance.IsPassing() && pauses > 0; ++i, --pauses) {
        nanosleep(&kPause, nullptr);
        hindrance = Run(command, whileWaiting, result_);
    }
    if (hindrance) return Complain(hindrance, command);
    pauses = kPausesInARow;
}

}  // namespace dunvey
