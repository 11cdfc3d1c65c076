#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dunvey {

/// The first line of a script, "#!INTERPRETER ARGUMENT", where the argument may be missing.
struct InterpreterLine {
    /// Empty if the file is no script.
    std::string interpreter;
    /// What stands behind the interpreter. The kernel hands it over as one argument, blanks and
    /// all.
    std::string argument;

    explicit operator bool() const { return !interpreter.empty(); }
};

/// The interpreter line of a file; an empty one if it is no regular file, can't be read or doesn't
/// begin with "#!". It never waits and never opens a device.
InterpreterLine ReadInterpreterLine(const std::string& path);

/// Whether a process that was started with these words, a program and its arguments, runs the
/// script that this is the first line of, the script being its next argument. The kernel starts the
/// program with the argument; `env` then starts one that its argument names.
bool StartsWith(const InterpreterLine& line, const std::vector<std::string_view>& words);

}  // namespace dunvey
