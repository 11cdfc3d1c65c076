#pragma once

#include <string>

namespace dunvey {

/// The variable that marks the environment of Dunvey's commands, "DUNVEY_OPENING=COUNT SECONDS":
/// how many times in quick succession Dunvey has run a command, each of which started Dunvey again,
/// and the monotonic time of this command.
std::string OpeningMark();

/// Whether this process is part of an endless loop: a registered command leads back to Dunvey,
/// which starts it again. Only quick passes count: a person who opens a document from within an
/// application that Dunvey started takes longer.
bool IsOpeningLoop();

}  // namespace dunvey
