#include "platform/processes/shell.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/files/anonymous_file.h"
#include "platform/files/file_descriptor.h"
#include "platform/processes/error_line.h"
#include "platform/processes/shell_environment.h"
#include "platform/processes/shortage.h"
#include "platform/processes/spawn.h"
#include "platform/processes/stack_limit.h"

namespace dunvey {
namespace {

// The kernel's limit for one argument is 131,072 bytes with its terminating zero.
constexpr size_t kArgumentLimit = 131'071;

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

/// Starts the shell. A command too long for one argument is passed as a script file. Returns 0 or
/// an errno.
int StartShell(const std::string& command, int output, pid_t& process) {
    SpawnRequest request{"/bin/sh", {"sh", "-c", command}, ShellEnvironment(), output};
    if (command.size() <= kArgumentLimit) return Spawn(request, process);
    const FileDescriptor file = MakeAnonymousFile();
    if (!file) return errno;
    if (const int error = WriteFully(file.Get(), command)) return error;
    const FileDescriptor script = DuplicateAboveScript(file.Get());
    if (!script || lseek(script.Get(), 0, SEEK_SET) != 0) return errno;
    const RaisedStackLimit limit;
    request.arguments = {"sh", "/dev/fd/" + std::to_string(kScriptDescriptor)};
    request.script = script.Get();
    if (!limit.Variable().empty()) request.environment.push_back(limit.Variable());
    return Spawn(request, process);
}

/// Returns when there is output to read or the output is closed.
void AwaitOutput(int descriptor, const std::function<void()>& whileWaiting) {
    constexpr int kMilliseconds = 50;
    pollfd wait{descriptor, POLLIN, 0};
    while (poll(&wait, 1, kMilliseconds) == 0)
        whileWaiting();
}

/// Returns 0 or the errno of the start.
int Run(const std::string& command, const std::function<void()>& whileWaiting,
        std::string& result) {
    Pipe output;
    if (const int error = MakePipe(output)) return error;
    pid_t process = 0;
    if (const int error = StartShell(command, output.writing.Get(), process)) return error;
    output.writing.Close();
    if (whileWaiting) AwaitOutput(output.reading.Get(), whileWaiting);
    result = ReadAll(output.reading.Get());
    // After a failed read this ends a command that keeps writing.
    output.reading.Close();
    Uninterrupted([process] { return waitpid(process, nullptr, 0); });
    return 0;
}

}  // namespace

void Shell::Execute(const std::string& command, const std::function<void()>& whileWaiting) {
    result_.clear();
    const int error = RetryOnShortage([&] { return Run(command, whileWaiting, result_); });
    if (error == 0) return;
    // For a launch, the command names the documents that weren't opened.
    WriteErrorLine(std::string("Dunvey: the shell can't be started: ") + std::strerror(error) +
                   ". This command was not run: " + command);
}

}  // namespace dunvey
