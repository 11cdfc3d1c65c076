#pragma once

#include <cstdint>

namespace dunvey {

/// Whether the program refuses to run on this system: macOS 10.15 and all that come after it.
bool IsSystemRefused(int64_t major, int64_t minor);

/// Whether the document icons must be imported: the build has changed since the preferences were
/// written, or the newest installed version is another than the one they were imported from.
bool IsIconImportDue();

}  // namespace dunvey
