#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// The environment of Shell's commands, "NAME=value" each: that of the start, with OpeningMark and
/// on Linux the bundle's Helpers folder first in PATH. Raises RuntimeException where one of the
/// helpers is missing: another program of its name must not get the documents.
std::vector<std::string> ShellEnvironment();

/// The environment of the start with this PATH and OpeningMark, and without functions of bash.
std::vector<std::string> EnvironmentWithPath(const std::string& path);

}  // namespace dunvey
