#pragma once

#include <string>

namespace dunvey {

/// The path of `SpecialFolder::Applications`, for programs that don't use `FolderItem`.
std::string ApplicationsPath();

}  // namespace dunvey
