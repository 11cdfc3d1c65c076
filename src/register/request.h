#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// The parsed command line.
struct Request {
    enum class Action { Register, List, Remove, Help };

    Action action = Action::Help;
    std::string name;
    std::string version;
    /// A path; empty if none was given.
    std::string icon;
    /// The path of a Wine prefix; empty if the command isn't a Windows program.
    std::string winePrefix;
    /// Whether --force was given: questionable versions and changed files are accepted.
    bool force = false;
    /// The program and its arguments.
    std::vector<std::string> command;
};

/// The arguments are wrong; `text` says what to write instead.
struct UsageError {
    std::string text;
};

/// A failure; `text` says what, where and what to do.
struct Refusal {
    std::string text;
};

/// Parses the arguments. Raises UsageError, also for a name or a version that can't be used.
Request ReadRequest(const std::vector<std::string>& arguments);

}  // namespace dunvey
