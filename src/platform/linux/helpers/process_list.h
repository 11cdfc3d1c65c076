#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/linux/helpers/process_folder.h"

namespace dunvey {

/// The file that a process runs.
struct ProgramFile {
    /// The absolute path; empty if it can't be read. See ProgramPath.
    std::string path;
    /// Whether the path may lead through links.
    bool hasLinks = false;
};

/// The processes of the system, as they are at each call.
class ProcessList {
 public:
    /// The ids of all processes, ascending; none if the system doesn't tell.
    std::vector<pid_t> Ids() const;

    /// The script that the process runs, else its executable. Without a path for a process that has
    /// ended, has no executable (the kernel's own) or is not ours to look at.
    ProgramFile Program(pid_t id) const;

    /// Whether the words that the process was started with can be read: not while it is just being
    /// started.
    bool HasWords(pid_t id) const;

 private:
    ProcessFolder folder_;
};

}  // namespace dunvey
