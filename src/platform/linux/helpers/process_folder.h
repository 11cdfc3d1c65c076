#pragma once

#include <limits.h>
#include <sys/types.h>

#include "platform/linux/helpers/slice.h"
#include "platform/processes/system_call.h"

namespace dunvey {

/// /proc, where the system tells of its processes, as they are at each call. Without the C++
/// library.
class ProcessFolder {
 public:
    /// As much as is looked at of the words that a process was started with.
    static constexpr size_t kWordsLimit = 8192;
    /// Few enough that a second thread soon has something to do.
    static constexpr size_t kMostIds = 64;
    using IdsBuffer = pid_t[kMostIds];
    using PathBuffer = char[PATH_MAX];
    using WordsBuffer = char[kWordsLimit];
    using NameBuffer = char[64];

    ProcessFolder();

    /// Reads the next ids of processes in the order of the system, and behind the last or a failure
    /// from the first again. Returns their number, 0 behind the last, -1 if the system doesn't
    /// tell.
    ssize_t NextIds(IdsBuffer& ids) const;

    /// Where a link of the process leads: "/exe" is its executable, "/cwd" its current folder.
    /// Empty if that can't be read; otherwise a zero byte stands behind it.
    Slice Link(pid_t id, const char* name, PathBuffer& buffer) const;
    /// Whether the path names the executable that the process runs.
    bool IsExecutable(pid_t id, const char* path) const;

    /// The words the process was started with, a zero byte behind each, as far as they fit; empty
    /// while it is just being started.
    Slice Words(pid_t id, WordsBuffer& buffer) const;
    /// The kernel's name for the process; empty if there is none.
    Slice Name(pid_t id, NameBuffer& buffer) const;

 private:
    ssize_t ReadEntries(char* buffer, size_t size) const;
    /// What a file of the process says, as far as it fits; empty if it can't be read. The kernel
    /// hands it over in one piece: behind the byte that is its end no more is asked for.
    Slice Read(pid_t id, const char* name, char end, char* buffer, size_t size) const;

    FileDescriptor folder_;
};

}  // namespace dunvey
