// open -a APP FILE...   starts the application with the files
// open APP              starts the application unless it is running
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "platform/files/path.h"
#include "platform/linux/helpers/application_environment.h"
#include "platform/linux/helpers/bundle.h"
#include "platform/linux/helpers/bundle_executable.h"
#include "platform/linux/helpers/detached_start.h"
#include "platform/linux/helpers/process_list.h"
#include "platform/linux/helpers/script_line.h"
#include "platform/processes/error_line.h"

namespace dunvey {
namespace {

struct Call {
    std::string application;
    std::vector<std::string> files;
    bool onlyIfNotRunning = false;
};

/// nullopt for invalid arguments.
std::optional<Call> ReadCall(const std::vector<std::string>& arguments) {
    if (std::find(arguments.begin(), arguments.end(), "") != arguments.end()) return std::nullopt;
    if (arguments.size() == 1 && arguments[0].front() != '-') return Call{arguments[0], {}, true};
    if (arguments.size() < 3 || arguments[0] != "-a") return std::nullopt;
    return Call{arguments[1], {arguments.begin() + 2, arguments.end()}, false};
}

/// False if there is no current folder for relative paths.
bool MakeAbsolute(std::vector<std::string>& files) {
    for (std::string& file : files) {
        file = AbsolutePath(file);
        if (file.empty()) return false;
    }
    return true;
}

std::string MissingPart(const std::string& executable) {
    const std::string interpreter = ScriptLine(executable).Interpreter();
    if (interpreter.empty()) {
        return Quoted(executable) +
               " needs a program loader that isn't installed. It may have been built for another "
               "operating system.";
    }
    return "the script " + Quoted(executable) + " names the interpreter " + Quoted(interpreter) +
           ", which is missing. Install it, or correct the first line of the script.";
}

std::string StartProblem(const std::string& executable, int error) {
    switch (error) {
        case ENOENT:
            return MissingPart(executable);
        case ENOEXEC:
            return Quoted(executable) +
                   " is no program for this machine. The first line of a script must name its "
                   "interpreter, such as #!/bin/sh.";
        case EACCES:
            return Quoted(executable) +
                   " or its interpreter may not be executed. Check their permissions and the mount "
                   "options of the file system.";
        case E2BIG:
            return "there are too many files for one start of " + Quoted(executable) +
                   ". Open fewer of them at a time.";
        default:
            return Quoted(executable) + " can't be started: " + std::strerror(error) + ".";
    }
}

/// As the kernel counts the arguments: each with its terminating zero and a pointer.
size_t ArgumentBytes(const std::vector<std::string>& files) {
    size_t size = 0;
    for (const std::string& file : files)
        size += file.size() + 1 + sizeof(char*);
    return size;
}

/// Returns the message of what failed; empty for success.
std::string Open(Call call) {
    const std::optional<Bundle> bundle = Bundle::At(call.application);
    if (!bundle) {
        return Quoted(call.application) +
               " is no application: its folder Contents/MacOS can't be " +
               "reached: " + std::strerror(errno) + ". Check the path, or install it again.";
    }
    if (call.onlyIfNotRunning) {
        const auto running = ProcessList::Of(*bundle);
        if (!running) return "the processes can't be read from /proc. Is it mounted?";
        if (!running->empty()) return {};
    }
    const BundleExecutable executable = ExecutableOf(*bundle);
    if (executable.path.empty()) return executable.problem;
    if (!MakeAbsolute(call.files))
        return "the current folder is gone. Give absolute paths, or change the folder.";
    PrepareEnvironment(*bundle);
    RestoreStackLimit(ArgumentBytes(call.files));
    const int error = StartDetached(executable.path, call.files);
    return error == 0 ? std::string() : StartProblem(executable.path, error);
}

}  // namespace
}  // namespace dunvey

int main(int argumentCount, char** arguments) {
    using namespace dunvey;
    const auto call = ReadCall({arguments + 1, arguments + argumentCount});
    if (!call) {
        WriteErrorLine("usage: open -a APPLICATION FILE..., or open APPLICATION");
        return 2;
    }
    const std::string problem = Open(*call);
    if (problem.empty()) return 0;
    WriteErrorLine("open: " + problem);
    for (const std::string& file : call->files)
        WriteErrorLine("open: not opened: " + Quoted(file));
    return 1;
}
