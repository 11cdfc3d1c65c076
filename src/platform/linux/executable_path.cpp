#include "platform/bundles/executable_path.h"

#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>

#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

// The kernel's mark behind the path of a program that was replaced while it runs.
constexpr std::string_view kDeleted = " (deleted)";

}  // namespace

std::string ExecutablePath() {
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    if (length <= 0) {
        throw IOException(
            std::string("The program's own path can't be read from /proc/self/exe: ") +
                std::strerror(errno) + ".",
            errno);
    }
    std::string executable(path, static_cast<size_t>(length));
    if (executable.ends_with(kDeleted) && access(executable.c_str(), F_OK) != 0) {
        executable.resize(executable.size() - kDeleted.size());
    }
    return executable;
}

}  // namespace dunvey
