#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/helpers/bundle.h"

/// The processes of the machine as /proc shows them at each call.
namespace dunvey::ProcessList {

/// The ids of all processes, ascending; empty if /proc can't be read.
std::vector<pid_t> Ids();

/// The path of the bundle's script or program that the process runs, else of its executable. The
/// links of its folder are resolved. Empty for a kernel thread, for an ended process, and for
/// another user's process outside of bundles.
std::string Program(pid_t id);

/// The first arguments, at most eight and 8 KiB of them. Empty while the process is being started.
std::vector<std::string> Arguments(pid_t id);

/// The value of a variable in the environment that the process was started with. Empty if it isn't
/// set or belongs to another user.
std::string Variable(pid_t id, const std::string& name);

/// The ids of the processes of the bundle's programs, ascending; nullopt if /proc can't be read.
std::optional<std::vector<pid_t>> Of(const Bundle& bundle);

}  // namespace dunvey::ProcessList
