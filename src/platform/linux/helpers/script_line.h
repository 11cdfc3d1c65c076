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

    /// Whether a process runs the script; `arguments` are those before the script's path. The first
    /// one must be the interpreter; if that is a script itself, it may come later. Only arguments
    /// from the script's line may follow it.
    bool IsRunBy(const std::vector<std::string>& arguments) const;

 private:
    std::string interpreter_;
    /// The argument in one piece, as the kernel passes it, then its words, as `env` splits it.
    std::vector<std::string> rest_;
};

}  // namespace dunvey
