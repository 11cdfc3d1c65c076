#pragma once

#include <string>

#include "platform/linux/helpers/bundle.h"

namespace dunvey {

/// Changes this process's environment for the application: removes the Helpers folder from PATH and
/// sets DUNVEY_APPLICATION to the bundle's path, which marks all processes of the application.
void PrepareEnvironment(const Bundle& bundle);

/// Restores the soft stack limit that DUNVEY_STACK_LIMIT holds, unless the application's arguments
/// and environment need the current one, and removes the variable.
void RestoreStackLimit(size_t argumentBytes);

}  // namespace dunvey
