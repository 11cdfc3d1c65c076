#pragma once

#include <string>

namespace dunvey {

/// The path, a relative one joined to the current folder. Empty if the current folder is gone.
std::string AbsolutePath(const std::string& path);

/// The absolute path without links, "." and "..". Empty, with errno set, if the file can't be
/// reached.
std::string RealPath(const std::string& path);

/// Whether both paths name the same file or folder, links followed. False if one can't be reached.
bool IsSameFile(const std::string& left, const std::string& right);

/// The user's home folder: HOME if that is an absolute path, else the one of the user database, "/"
/// if there is none.
std::string HomePath();

}  // namespace dunvey
