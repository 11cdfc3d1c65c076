#pragma once

#include <functional>
#include <string>

namespace dunvey {

/// Runs a command line through /bin/sh; one object for each command. On Linux the bundle's Helpers
/// folder is first in its PATH.
class Shell {
 public:
    /// Runs the command line and returns when it has ended. It may have any length. The arguments
    /// that it passes to one program may take about 6 MiB, since for more than 128 KiB the soft
    /// stack limit is raised (RaisedStackLimit). Standard input is empty, standard error this
    /// process's own.
    ///
    /// Raises RuntimeException where one of Dunvey's helpers is missing. If the shell can't be
    /// started, a line on standard error names the reason and the command, and Result is empty; a
    /// shortage of resources is retried before.
    ///
    /// `whileWaiting` is called twenty times a second until the command writes something or ends.
    /// Its exceptions pass through; the command then continues in the background.
    void Execute(const std::string& command, const std::function<void()>& whileWaiting = {});

    /// The standard output of the command.
    const std::string& Result() const { return result_; }

 private:
    std::string result_;
};

}  // namespace dunvey
