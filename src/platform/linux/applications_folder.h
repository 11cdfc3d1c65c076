#pragma once

#include <string>

namespace dunvey {

/// The path of `SpecialFolder::Applications`, for programs that don't use `FolderItem`.
std::string ApplicationsPath();

/// The user's home folder, "/" if none is known.
std::string HomePath();

}  // namespace dunvey
