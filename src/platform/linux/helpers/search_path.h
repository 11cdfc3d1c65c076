#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// A list of folders as PATH holds it, without those that are the given folder, by whatever path.
std::string WithoutFolder(std::string_view searchPath, const std::string& folder);

/// Takes the folder of this program out of PATH again. Dunvey puts it first for its own commands;
/// the applications that these start must find the system's programs.
void RestoreSearchPath();

}  // namespace dunvey
