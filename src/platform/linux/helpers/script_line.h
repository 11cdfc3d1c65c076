#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// The first line of a script, "#!INTERPRETER ARGUMENT", where the argument may be missing.
class ScriptLine {
 public:
    /// Reads the line of a file; an empty one if it is no regular file, can't be read or doesn't
    /// start with "#!". Never blocks and never opens a device.
    explicit ScriptLine(const std::string& path);

    /// Empty for a file that is no script.
    const std::string& Interpreter() const { return interpreter_; }

    /// Whether a process whose arguments start with these, up to the script's path, runs the
    /// script: the interpreter is the first of them, or for an interpreter that is a script itself
    /// stands further on, and only arguments from the script's line follow.
    bool IsRunBy(const std::vector<std::string>& arguments) const;

 private:
    std::string interpreter_;
    /// The argument as the kernel passes it, in one piece, and its words, which `env` separates.
    std::vector<std::string> rest_;
};

}  // namespace dunvey
