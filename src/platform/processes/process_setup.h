#pragma once

namespace dunvey {

/// Makes the process one that nothing from outside can trip up: a reader of standard error that is
/// gone doesn't end it, and the three standard descriptors are open, so that no file or connection
/// of its own gets one of their numbers. To be called first.
void SetUpProcess();

}  // namespace dunvey
