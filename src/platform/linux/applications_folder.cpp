#include "platform/linux/applications_folder.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace dunvey {
namespace {

bool IsAbsolute(const char* path) {
    return path != nullptr && path[0] == '/';
}

}  // namespace

std::string HomePath() {
    const char* home = std::getenv("HOME");
    if (IsAbsolute(home)) return home;
    const passwd* user = getpwuid(getuid());
    return user != nullptr && IsAbsolute(user->pw_dir) ? user->pw_dir : "/";
}

std::string ApplicationsPath() {
    constexpr const char* kShared = "/Applications";
    struct stat status;
    if (stat(kShared, &status) == 0 && S_ISDIR(status.st_mode)) return kShared;
    return HomePath() + "/Applications";
}

}  // namespace dunvey
