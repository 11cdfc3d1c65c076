#pragma once

#include <spawn.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace dunvey::bench {

/// The result of a program that has ended.
struct Outcome {
    /// As wait4() gives it: 0 after exit code 0; -1 if the program could not be started.
    int status = -1;
    pid_t process = 0;
    long peakKilobytes = 0;
    std::string output;
};

/// Runs a program with these arguments, the first of which is its absolute path, and this
/// environment, and reads its standard output.
Outcome RunProgram(std::vector<std::string> arguments, std::vector<std::string> variables);

/// Runs a shell command with posix_spawn alone and returns its output. Exits on failure.
std::string BareShell(const std::string& command);

}  // namespace dunvey::bench
