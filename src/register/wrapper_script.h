#pragma once

#include <string>

#include "register/command.h"

namespace dunvey {

/// The shell script that is an application's program. It starts the command with the documents as
/// last arguments, runs as long as the command and passes SIGTERM to it. It tells the user if a
/// file of the command is missing or the command fails within a second.
std::string WrapperScript(const std::string& name, const Command& command);

}  // namespace dunvey
