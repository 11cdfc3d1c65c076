#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// The environment of a shell command, "NAME=value" each.
std::vector<std::string> ShellEnvironment();

}  // namespace dunvey
