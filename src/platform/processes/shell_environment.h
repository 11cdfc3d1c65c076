#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// The environment of Shell's commands, "NAME=value" each: that of the start, with OpeningMark and
/// on Linux the bundle's Helpers folder first in PATH. Raises RuntimeException where one of the
/// helpers is missing: another program of its name must not get the documents.
std::vector<std::string> ShellEnvironment();

}  // namespace dunvey
