#pragma once

#include <string>
#include <vector>

#include "platform/files/file_descriptor.h"

namespace dunvey {

/// Prepares the process; called first in main. Refuses to run set-user-ID, set-group-ID or with
/// file capabilities: says so on standard error and exits with 1. Keeps the environment for
/// StartEnvironment. Ignores SIGPIPE and SIGXFSZ, so that such writes fail instead of killing the
/// process. Calls OpenNullDevice.
void SetUpProcess();

/// Opens /dev/null for closed standard streams, so that no other file gets their numbers. Returns
/// another descriptor of it, above them; none on failure, with errno set.
FileDescriptor OpenNullDevice();

/// Whether the program file gave the process more rights than its user has.
bool HasRaisedPrivileges();

/// The environment, "NAME=value" each, that the process was started with: Qt changes it later. The
/// current one if SetUpProcess wasn't called.
std::vector<std::string> StartEnvironment();

}  // namespace dunvey
