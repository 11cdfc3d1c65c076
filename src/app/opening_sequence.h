#pragma once

#include <cstdint>
#include <string>

namespace dunvey {

/// Whether the program refuses to run on this system: macOS 10.15 and all that come after it.
bool IsSystemRefused(int64_t major, int64_t minor);

/// Whether the document icons must be imported: the build has changed since the preferences were
/// written, or the newest installed version is another than the one they were imported from.
bool IsIconImportDue();

/// The caption of the menu item that shows the About window, in the user's language.
std::string AboutCaption();

}  // namespace dunvey
