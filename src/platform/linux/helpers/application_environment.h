#pragma once

#include <string>

#include "platform/linux/helpers/bundle.h"

namespace dunvey {

/// Turns this process's environment into the application's. The folder of the helpers leaves PATH,
/// where Dunvey put it first for its own commands. DUNVEY_APPLICATION becomes the bundle's path: it
/// marks the processes that belong to the application, whichever program they run.
void PrepareEnvironment(const Bundle& bundle);

/// Restores the soft stack limit that DUNVEY_STACK_LIMIT holds, unless the application's arguments
/// and environment need the present one, and removes the variable.
void RestoreStackLimit(size_t argumentBytes);

}  // namespace dunvey
