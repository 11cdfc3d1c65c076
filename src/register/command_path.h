#pragma once

#include <string>

namespace dunvey {

/// The absolute path of a command: a name without a slash is looked for in PATH. So the command is
/// the same wherever it is started from later. Raises Refusal if there is no such program.
std::string CommandPath(const std::string& command);

}  // namespace dunvey
