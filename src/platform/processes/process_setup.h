#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// Prepares the process; called first in main. Refuses to run set-user-ID, set-group-ID or with
/// file capabilities: says so on standard error and exits with 1. Keeps the environment for
/// StartEnvironment. Ignores SIGPIPE and SIGXFSZ, so that such writes fail instead of killing the
/// process. Opens /dev/null for closed standard descriptors, so that no other file gets their
/// numbers.
void SetUpProcess();

/// Whether the program file gave the process more rights than its user has.
bool HasRaisedPrivileges();

/// The environment, "NAME=value" each, that the process was started with: Qt changes it later. The
/// current one if SetUpProcess wasn't called.
std::vector<std::string> StartEnvironment();

}  // namespace dunvey
