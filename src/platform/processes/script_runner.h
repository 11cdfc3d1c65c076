#pragma once

#include <string>

namespace dunvey {

/// The absolute path of the program that runs the system's script files.
std::string ScriptRunner();

}  // namespace dunvey
