#pragma once

namespace dunvey {

/// Whether there is a screen that the toolkit can show windows on.
bool CanReachDisplay();

}  // namespace dunvey
