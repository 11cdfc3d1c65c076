#include "platform/linux/helpers/search_path.h"

#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace dunvey {
namespace {

bool IsSameFolder(const std::string& left, const std::string& right) {
    struct stat leftStatus;
    struct stat rightStatus;
    return stat(left.c_str(), &leftStatus) == 0 && stat(right.c_str(), &rightStatus) == 0 &&
           leftStatus.st_dev == rightStatus.st_dev && leftStatus.st_ino == rightStatus.st_ino;
}

std::string OwnFolder() {
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    const std::string_view own(path, length > 0 ? static_cast<size_t>(length) : 0);
    return std::string(own.substr(0, own.rfind('/')));
}

}  // namespace

std::string WithoutFolder(std::string_view searchPath, const std::string& folder) {
    std::string kept;
    for (bool isLast = false; !isLast;) {
        const size_t end = searchPath.find(':');
        const std::string entry(searchPath.substr(0, end));
        // An empty entry is the current directory and stays.
        if (!IsSameFolder(entry, folder)) kept.append(entry).append(1, ':');
        isLast = end == std::string_view::npos;
        if (!isLast) searchPath.remove_prefix(end + 1);
    }
    if (!kept.empty()) kept.pop_back();
    return kept;
}

void RestoreSearchPath() {
    const char* const searchPath = std::getenv("PATH");
    if (searchPath == nullptr) return;
    const std::string restored = WithoutFolder(searchPath, OwnFolder());
    if (restored.empty()) {
        unsetenv("PATH");
    } else {
        setenv("PATH", restored.c_str(), 1);
    }
}

}  // namespace dunvey
