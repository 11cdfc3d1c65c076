#pragma once

#include <sys/types.h>

#include <optional>
#include <vector>

#include "platform/linux/helpers/bundle.h"
#include "platform/linux/helpers/process_list.h"

namespace dunvey {

/// Whether the process runs a program or a script out of the bundle's Contents/MacOS.
bool BelongsTo(const Bundle& bundle, const ProcessList& processes, pid_t id);

/// The ids of the bundle's processes, ascending.
std::vector<pid_t> ProcessesOf(const Bundle& bundle, const ProcessList& processes);

/// Whether the bundle has a process; none if the system doesn't tell.
std::optional<bool> IsRunning(const Bundle& bundle, const ProcessList& processes);

}  // namespace dunvey
