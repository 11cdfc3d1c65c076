#pragma once

#include <optional>
#include <string>
#include <vector>

namespace dunvey {

/// The names of a folder's visible entries, in any order; nullopt if it can't be read.
std::optional<std::vector<std::string>> FolderNames(const std::string& path);

}  // namespace dunvey
