#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/files/file_descriptor.h"

namespace dunvey {

/// The descriptor number under which a started program gets its script.
constexpr int kScriptDescriptor = 3;

/// A program to start. `script`, if not -1, becomes its descriptor 3.
struct SpawnRequest {
    std::string path;
    std::vector<std::string> arguments;
    std::vector<std::string> environment;
    int output = -1;
    int script = -1;
};

/// Starts the program with an empty standard input, `output` as standard output, this process's
/// standard error, no signal blocked and each at its default. Sets its process id. Returns 0 or an
/// errno.
int Spawn(const SpawnRequest& request, pid_t& process);

/// A duplicate above kScriptDescriptor with close-on-exec, or none, with errno set.
FileDescriptor DuplicateAboveScript(int descriptor);

struct Pipe {
    FileDescriptor reading;
    FileDescriptor writing;
};

/// Makes a pipe above kScriptDescriptor with close-on-exec. Returns 0 or the errno.
int MakePipe(Pipe& pipe);

}  // namespace dunvey
