#pragma once

#include <functional>
#include <string>

namespace dunvey {

/// Runs command lines through the system's shell, /bin/sh; one object for each command. On Linux
/// the bundle's Helpers folder stands first in its PATH.
class Shell {
 public:
    /// Runs the command line and returns when it has ended. It may be longer than one argument can
    /// be; what the shell then hands to one command may have about 6 MiB, and for that the commands
    /// inherit a soft stack limit of 24 MiB where it was lower. Standard input is empty,
    /// standard error is the program's own. If the shell can't be started, also not after a moment
    /// where the machine was short of something, or a command of the program's own is missing,
    /// standard error says so with the command, and Result is empty. A shortage that outlasts many
    /// commands is waited for no longer.
    /// `whileWaiting` is called twenty times a second until the command writes something or ends;
    /// what it throws passes through, and the command goes on alone.
    void Execute(const std::string& command, const std::function<void()>& whileWaiting = {});

    /// The standard output of the command.
    const std::string& Result() const { return result_; }

 private:
    std::string result_;
};

}  // namespace dunvey
