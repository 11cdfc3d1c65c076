#pragma once

#include <functional>
#include <string>

namespace dunvey {

/// Runs a command line through /bin/sh; one object for each command. On Linux the bundle's Helpers
/// folder is first in its PATH.
class Shell {
 public:
    /// Runs the command line and returns when it has ended. Its length isn't limited, and what it
    /// passes to one program may take about 6 MiB: for a command of more than 128 KiB the soft
    /// stack limit is raised, see RaisedStackLimit. Standard input is empty, standard error this
    /// process's own.
    ///
    /// Raises RuntimeException where one of Dunvey's helpers is missing. If the shell can't be
    /// started, after some attempts where the machine is short of resources, a line on standard
    /// error names the reason and the command, and Result is empty.
    ///
    /// `whileWaiting` is called twenty times a second until the command writes something or ends.
    /// What it throws passes through, and the command continues alone.
    void Execute(const std::string& command, const std::function<void()>& whileWaiting = {});

    /// The standard output of the command.
    const std::string& Result() const { return result_; }

 private:
    std::string result_;
};

}  // namespace dunvey
