#include "program.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>

namespace dunvey::bench {
namespace {

constexpr size_t kArgumentLimit = 131'071;
constexpr int kScriptDescriptor = 3;

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

[[noreturn]] void Fail(const char* what) {
    std::perror(what);
    std::exit(1);
}

/// Reads the descriptor to its end.
std::string ReadToEnd(int descriptor) {
    std::string text;
    static char block[65536];
    for (ssize_t got; (got = read(descriptor, block, sizeof block)) > 0;)
        text.append(block, static_cast<size_t>(got));
    return text;
}

/// A started program with its standard output in a pipe.
class Started {
 public:
    Started(const char* program, char* const* arguments, char* const* variables, int script = -1) {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) Fail("pipe");
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        if (script >= 0) posix_spawn_file_actions_adddup2(&actions, script, kScriptDescriptor);
        failed_ = posix_spawn(&process_, program, &actions, nullptr, arguments, variables) != 0;
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        output_ = ends[0];
    }
    bool Failed() const { return failed_; }

    Outcome End() {
        Outcome outcome;
        outcome.output = ReadToEnd(output_);
        close(output_);
        if (failed_) return outcome;
        rusage usage{};
        outcome.process = process_;
        wait4(process_, &outcome.status, 0, &usage);
        outcome.peakKilobytes = usage.ru_maxrss;
        return outcome;
    }

 private:
    bool failed_ = false;
    pid_t process_ = 0;
    int output_ = -1;
};

std::string RunShell(const char* first, const char* second, int script) {
    const char* arguments[] = {"sh", first, second, nullptr};
    Started started("/bin/sh", const_cast<char* const*>(arguments), environ, script);
    if (started.Failed()) Fail("/bin/sh");
    return started.End().output;
}

}  // namespace

Outcome RunProgram(std::vector<std::string> arguments, std::vector<std::string> variables) {
    const std::string program = arguments[0];
    return Started(program.c_str(), Pointers(arguments).data(), Pointers(variables).data()).End();
}

std::string BareShell(const std::string& command) {
    if (command.size() <= kArgumentLimit) return RunShell("-c", command.c_str(), -1);
    // One argument can't hold it.
    const int script = memfd_create("command", MFD_CLOEXEC);
    if (script < 0) Fail("memfd_create");
    // dup2 onto the same number would leave close-on-exec set.
    const int moved = fcntl(script, F_DUPFD_CLOEXEC, kScriptDescriptor + 1);
    if (write(moved, command.data(), command.size()) != static_cast<ssize_t>(command.size()))
        Fail("write");
    lseek(moved, 0, SEEK_SET);
    std::string output = RunShell("/dev/fd/3", nullptr, moved);
    close(moved);
    close(script);
    return output;
}

}  // namespace dunvey::bench
