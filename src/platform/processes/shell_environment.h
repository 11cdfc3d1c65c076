#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// The environment of Shell's commands, "NAME=value" each: EnvironmentWithPath, on Linux with the
/// bundle's Helpers folder first in PATH. Raises RuntimeException where one of the helpers is
/// missing: another program of its name must not get the documents.
std::vector<std::string> ShellEnvironment();

/// The environment of the start with this PATH and without functions of bash. It is marked with
/// "DUNVEY_OPENING=COUNT SECONDS": how many times in quick succession Dunvey has run a command,
/// each of which started Dunvey again, and the monotonic time of this command.
std::vector<std::string> EnvironmentWithPath(const std::string& path);

/// Whether this process is part of an endless loop: a registered command starts Dunvey, which runs
/// that command again. Only quick passes count: a person who opens a document from within an
/// application that Dunvey started takes longer.
bool IsOpeningLoop();

}  // namespace dunvey
