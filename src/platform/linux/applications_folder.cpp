#include "platform/linux/applications_folder.h"

#include <sys/stat.h>

#include "platform/files/path.h"

namespace dunvey {

std::string ApplicationsPath() {
    constexpr const char* kShared = "/Applications";
    struct stat status;
    if (stat(kShared, &status) == 0 && S_ISDIR(status.st_mode)) return kShared;
    return HomePath() + "/Applications";
}

}  // namespace dunvey
