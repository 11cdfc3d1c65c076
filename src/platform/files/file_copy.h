#pragma once

#include <string>

namespace dunvey {

/// Copies the regular file `source`, links followed, to the new file `target` with its permission
/// bits. Returns 0 or an errno: EEXIST if there is something at `target`, EINVAL if the source is
/// no regular file. A copy that fails is removed.
int CopyFile(const std::string& source, const std::string& target);

/// The same, but copies a link as a link.
int CopyFileOrLink(const std::string& source, const std::string& target);

}  // namespace dunvey
