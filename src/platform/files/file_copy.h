#pragma once

#include <string>

namespace dunvey {

/// Copies the regular file `source`, links followed, to the new file `target` with its permission
/// bits. Returns 0, or the system's errno: EEXIST if there is something at `target`, EINVAL if the
/// source is no regular file. Of a copy that fails nothing stays behind.
int CopyFile(const std::string& source, const std::string& target);

}  // namespace dunvey
