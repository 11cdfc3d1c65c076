#pragma once

#include <spawn.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace dunvey::bench {

/// What became of a program that was run to its end.
struct Outcome {
    /// 0 after an exit with 0; -1 if it could not be started.
    int status = -1;
    pid_t process = 0;
    long peakKilobytes = 0;
    std::string output;
};

/// Runs a program with these words, by its whole path, and this environment, and reads what it
/// prints.
Outcome RunProgram(std::vector<std::string> words, std::vector<std::string> variables);

/// Reads the descriptor to its end, in large blocks.
std::string ReadToEnd(int descriptor);

/// Runs a shell command and reads its output with posix_spawn and nothing else. Ends the program if
/// that doesn't work.
std::string BareShell(const std::string& command);

}  // namespace dunvey::bench
