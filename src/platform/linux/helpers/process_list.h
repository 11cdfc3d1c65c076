#pragma once

#include <sys/types.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_descriptor.h"

namespace dunvey {

/// The file that a process runs.
struct ProgramFile {
    /// The absolute path; empty if it can't be read. Links are resolved, with two exceptions: a
    /// script keeps the folders of the absolute path it was started by, and a program that was
    /// started as one of a bundle, from its Contents/MacOS, keeps the whole path.
    std::string path;
    /// Whether the path may lead through links.
    bool hasLinks = false;
};

/// The processes of the system, as they are at each call.
class ProcessList {
 public:
    ProcessList();

    /// The ids of all processes, ascending; none if the system doesn't tell.
    std::vector<pid_t> Ids() const;

    /// The script that the process runs, else its executable. Without a path for a process that has
    /// ended, has no executable (the kernel's own) or is not ours to look at.
    ProgramFile Program(pid_t id) const;

    /// The words the process was started with, as far as they fit into 8 KiB; none while it is just
    /// being started.
    std::vector<std::string> Words(pid_t id) const;

 private:
    /// The words, waited for up to two milliseconds where a process is just being started: `env`
    /// starts a second program in its place, in the midst of which it has none.
    std::vector<std::string> SettledWords(pid_t id) const;

    class ScriptHints;
    /// The script among the words that a process was started with, as an absolute path; empty if it
    /// runs none.
    std::string ScriptAmong(const std::vector<std::string>& words, pid_t id,
                            const std::string& executable) const;

    /// The process's own; empty if that isn't known.
    std::string CurrentFolder(pid_t id) const;
    /// The kernel's name for the process; empty if there is none.
    std::string Name(pid_t id) const;
    /// What a file of the process says, as far as it fits; empty if it can't be read. The kernel
    /// hands it over in one piece: behind the byte that is its end no more is asked for.
    std::string_view Read(const std::string& path, char end, std::span<char> buffer) const;

    FileDescriptor folder_;
};

}  // namespace dunvey
