#include "platform/linux/program_link.h"

#include <unistd.h>

#include <climits>
#include <string_view>

namespace dunvey {

std::string ProgramLink(const std::string& link) {
    constexpr std::string_view kDeleted = " (deleted)";
    char buffer[PATH_MAX];
    const ssize_t length = readlink(link.c_str(), buffer, sizeof buffer);
    if (length <= 0 || length == sizeof buffer || buffer[0] != '/') return {};
    std::string target(buffer, static_cast<size_t>(length));
    if (target.ends_with(kDeleted)) target.resize(target.size() - kDeleted.size());
    return target;
}

}  // namespace dunvey
