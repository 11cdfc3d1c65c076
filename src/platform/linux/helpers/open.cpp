// open -a APP FILE...   starts the application with the files
// open APP              starts the application unless it is running
#include <cerrno>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/helpers/bundle.h"
#include "platform/linux/helpers/bundle_executable.h"
#include "platform/linux/helpers/bundle_processes.h"
#include "platform/linux/helpers/detached_start.h"
#include "platform/linux/helpers/interpreter_line.h"
#include "platform/linux/helpers/message.h"
#include "platform/linux/helpers/search_path.h"

namespace dunvey {
namespace {

struct Call {
    std::string application;
    /// As absolute paths.
    std::vector<std::string> files;
    bool onlyIfNotRunning = false;
};

/// What a call asks for; nothing if it makes no sense.
std::optional<Call> ReadCall(const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        if (word.empty()) return std::nullopt;
    }
    if (words.size() == 1 && words[0].front() != '-') return Call{words[0], {}, true};
    if (words.size() < 3 || words[0] != "-a") return std::nullopt;
    return Call{words[1], {words.begin() + 2, words.end()}, false};
}

/// Makes the paths absolute. False if there is no current directory to take them from.
bool MakeAbsolute(std::vector<std::string>& files) {
    for (std::string& file : files) {
        file = AbsolutePath(file);
        if (file.empty()) return false;
    }
    return true;
}

std::string MissingPart(const std::string& executable) {
    const InterpreterLine line(executable.c_str());
    if (!line) {
        return Quoted(executable) +
               " needs a part of the system that is missing. It may have been"
               " built for another system.";
    }
    const Slice interpreter = line.Interpreter();
    return "the script " + Quoted(executable) + " asks for the interpreter " +
           Quoted({interpreter.data, interpreter.size}) +
           ", which is missing. Install it, or correct the first line of the script.";
}

std::string StartProblem(const std::string& executable, int error) {
    switch (error) {
        case ENOENT:
            return MissingPart(executable);
        case ENOEXEC:
            return Quoted(executable) +
                   " is no program that this system can run. The first line of"
                   " a script must name its interpreter, such as #!/bin/sh.";
        case EACCES:
            return Quoted(executable) +
                   " or its interpreter may not be executed. Look at their"
                   " permissions, and at the options of the file system.";
        case E2BIG:
            return "there are too many files for one start of " + Quoted(executable) +
                   ". Open fewer of them at a time.";
        default:
            return Quoted(executable) + " can't be started: " + std::strerror(error) + ".";
    }
}

/// Does what is asked. Returns the message of what went wrong; empty if nothing did.
std::string Open(Call call) {
    const std::optional<Bundle> bundle = Bundle::At(call.application);
    if (!bundle) {
        return Quoted(call.application) + " is no application, its folder Contents/MacOS can't be" +
               " reached: " + std::strerror(errno) + ". Check the path, or install it again.";
    }
    if (call.onlyIfNotRunning) {
        const std::optional<bool> isRunning = IsRunning(*bundle, ProcessList());
        if (!isRunning) return "the processes can't be read from /proc. Is it mounted?";
        if (*isRunning) return {};
    }
    const BundleExecutable executable = ExecutableOf(*bundle);
    if (executable.path.empty()) return executable.problem;
    if (!MakeAbsolute(call.files)) {
        return "the current directory can't be told. Give absolute paths, or change the directory.";
    }
    RestoreSearchPath();
    const int error = StartDetached(executable.path, call.files);
    return error == 0 ? std::string() : StartProblem(executable.path, error);
}

}  // namespace
}  // namespace dunvey

int main(int argumentCount, char** arguments) {
    const auto call = dunvey::ReadCall({arguments + 1, arguments + argumentCount});
    if (!call) {
        dunvey::Complain("open", "usage: open -a APPLICATION FILE..., or open APPLICATION");
        return 2;
    }
    const std::string problem = dunvey::Open(*call);
    if (problem.empty()) return 0;
    dunvey::Complain("open", problem);
    for (const std::string& file : call->files)
        dunvey::Complain("open", "not opened: " + dunvey::Quoted(file));
    return 1;
}
