#include "platform/bundles/executable_path.h"

#include <cerrno>
#include <cstring>

#include "platform/linux/program_link.h"
#include "platform/values/exceptions.h"

namespace dunvey {

std::string ExecutablePath() {
    std::string path = ProgramLink("/proc/self/exe");
    if (!path.empty()) return path;
    throw IOException(
        std::string("Dunvey's own path can't be read from /proc/self/exe: ") + std::strerror(errno),
        errno);
}

}  // namespace dunvey
