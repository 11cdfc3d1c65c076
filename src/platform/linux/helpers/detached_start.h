#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// Starts a program that outlives this process and shares nothing with it: in a session and a
/// process group of its own, without a controlling terminal and unable to acquire one, with
/// /dev/null as its three standard streams and no other descriptor, every signal at its default and
/// none blocked, in the user's home folder, else in "/". It gets this process's environment, and
/// its own path before `arguments`.
///
/// Returns 0 as soon as the program runs and shows its arguments in /proc, or the errno of what
/// failed; then no process is left.
int StartDetached(const std::string& path, const std::vector<std::string>& arguments);

}  // namespace dunvey
