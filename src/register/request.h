#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// What the program was asked to do.
struct Request {
    enum class Action { Register, List, Remove, Help };

    Action action = Action::Help;
    std::string name;
    std::string version;
    /// A path; empty if there is none.
    std::string icon;
    /// The command and its words.
    std::vector<std::string> command;
};

/// A call that can't be understood or asks for what can't be; `text` says what to do.
struct UsageError {
    std::string text;
};

/// Something that stood in the way; `text` says what, where and what to do.
struct Refusal {
    std::string text;
};

/// Reads the words of the call. Raises UsageError, also for a name or a version that won't do.
Request ReadRequest(const std::vector<std::string>& words);

}  // namespace dunvey
