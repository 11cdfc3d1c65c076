#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// The environment of a shell command, "NAME=value" each. Empty where the program's own commands
/// aren't all there: then none may be run, as a stranger of the name would get the documents.
std::vector<std::string> ShellEnvironment();

}  // namespace dunvey
