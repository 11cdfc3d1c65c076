#pragma once

#include <cstdint>

namespace dunvey {

/// Whether the program refuses to run on this version of macOS: 10.15 and later.
bool IsSystemRefused(int64_t major, int64_t minor);

/// Whether the document icons must be imported: another build has written the preferences, or the
/// newest installed version isn't the one that the icons came from.
bool IsIconImportDue();

}  // namespace dunvey
