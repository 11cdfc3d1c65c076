#include "platform/files/path.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>

namespace dunvey {
namespace {

using OwnedText = std::unique_ptr<char, decltype(&std::free)>;

bool IsAbsolute(const char* path) {
    return path != nullptr && path[0] == '/';
}

}  // namespace

std::string AbsolutePath(const std::string& path) {
    if (path.starts_with('/')) return path;
    const OwnedText folder(getcwd(nullptr, 0), &std::free);
    // The kernel reports a folder outside the process's root as "(unreachable)/...".
    if (!folder || folder.get()[0] != '/') return {};
    return std::string(folder.get()) + "/" + path;
}

std::string RealPath(const std::string& path) {
    const OwnedText resolved(realpath(path.c_str(), nullptr), &std::free);
    return resolved ? resolved.get() : std::string();
}

bool IsSameFile(const std::string& left, const std::string& right) {
    struct stat first;
    struct stat second;
    return stat(left.c_str(), &first) == 0 && stat(right.c_str(), &second) == 0 &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

std::string HomePath() {
    const char* const home = std::getenv("HOME");
    if (IsAbsolute(home)) return home;
    const passwd* const user = getpwuid(getuid());
    return user != nullptr && IsAbsolute(user->pw_dir) ? user->pw_dir : "/";
}

}  // namespace dunvey
