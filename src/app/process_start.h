#pragma once

namespace dunvey {

/// The steps of process start and the run of the program, from the making of the application object
/// to the last finaliser. The event loop must exist. Returns the exit code: what Quit was given, 1
/// after a failure that nothing caught, which has then been reported.
int _Main();

void _EarlyStartup();
void _InitFileTypes();
void _NewAppInstance();
void _ApplicationAddMenuHandlers();
/// Has no work.
void _LateStartup();

}  // namespace dunvey
