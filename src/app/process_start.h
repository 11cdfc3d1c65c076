#pragma once

namespace dunvey {

/// Starts the program, runs it and frees its objects. The event loop must exist. Returns the exit
/// code: the one given to Quit, or 1 after an exception that nothing caught, which is reported.
int _Main();

void _EarlyStartup();
void _InitFileTypes();
void _NewAppInstance();
void _ApplicationAddMenuHandlers();
/// Does nothing.
void _LateStartup();

}  // namespace dunvey
