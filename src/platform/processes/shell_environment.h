#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// The environment of Shell's commands, "NAME=value" each: EnvironmentWithPath, on Linux with the
/// bundle's Helpers folder first in PATH. Raises RuntimeException where one of the helpers is
/// missing: another program of its name must not get the documents.
std::vector<std::string> ShellEnvironment();

/// The environment of StartEnvironment with this PATH and without exported bash functions.
/// "DUNVEY_OPENING=COUNT SECONDS" is added: how many times in quick succession a command of Dunvey
/// started Dunvey again, and the monotonic time of this command.
std::vector<std::string> EnvironmentWithPath(const std::string& path);

/// Whether this process is part of an endless loop: a registered command starts Dunvey, which runs
/// that command again. Only quick restarts count: a person who opens a document in an application
/// that Dunvey started takes longer.
bool IsOpeningLoop();

}  // namespace dunvey
