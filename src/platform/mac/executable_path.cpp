#include "platform/bundles/executable_path.h"

#include <mach-o/dyld.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "platform/values/exceptions.h"

namespace dunvey {

std::string ExecutablePath() {
    char path[PATH_MAX];
    uint32_t size = sizeof path;
    char resolved[PATH_MAX];
    errno = ENAMETOOLONG;
    if (_NSGetExecutablePath(path, &size) != 0 || realpath(path, resolved) == nullptr) {
        throw IOException(
            std::string("The program's own path can't be found: ") + std::strerror(errno) + ".",
            errno);
    }
    return resolved;
}

}  // namespace dunvey
