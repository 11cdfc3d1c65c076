#pragma once

#include <string>

namespace dunvey {

/// The absolute path of the running executable, links resolved. Raises IOException if the system
/// doesn't tell.
std::string ExecutablePath();

}  // namespace dunvey
