#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// Starts a program that is to outlive this process and to share nothing with it: in a session of
/// its own, with /dev/null as its three standard streams and no other descriptor, every signal at
/// its default and none blocked, in the user's home folder, else in "/". It gets this process's
/// environment, and `words` behind its own path as its arguments.
///
/// Returns 0 as soon as the program runs and can be seen in the list of processes, or the errno of
/// what failed; then no process is left behind.
int StartDetached(const std::string& path, const std::vector<std::string>& words);

}  // namespace dunvey
