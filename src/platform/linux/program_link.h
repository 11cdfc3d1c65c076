#pragma once

#include <string>

namespace dunvey {

/// The target of a link in /proc; empty if it can't be read or is no absolute path. Without the
/// " (deleted)" that the kernel appends where a program was replaced while it runs.
std::string ProgramLink(const std::string& link);

}  // namespace dunvey
