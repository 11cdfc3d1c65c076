#include "platform/linux/helpers/application_environment.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "platform/files/path.h"
#include "platform/linux/program_link.h"

namespace dunvey {
namespace {

constexpr const char* kStackLimit = "DUNVEY_STACK_LIMIT";

/// The search path without the given folder, whichever path names it.
std::string WithoutFolder(std::string_view searchPath, const std::string& folder) {
    std::string kept;
    for (bool isLast = false; !isLast;) {
        const size_t end = searchPath.find(':');
        const std::string entry(searchPath.substr(0, end));
        // An empty entry is the current directory and stays.
        if (!IsSameFile(entry, folder)) kept.append(entry).append(1, ':');
        isLast = end == std::string_view::npos;
        if (!isLast) searchPath.remove_prefix(end + 1);
    }
    if (!kept.empty()) kept.pop_back();
    return kept;
}

size_t EnvironmentBytes() {
    size_t size = 0;
    for (char** entry = environ; *entry != nullptr; ++entry)
        size += std::strlen(*entry) + 1 + sizeof(char*);
    return size;
}

}  // namespace

void PrepareEnvironment(const Bundle& bundle) {
    setenv("DUNVEY_APPLICATION", bundle.Path().c_str(), 1);
    const char* const searchPath = std::getenv("PATH");
    if (searchPath == nullptr) return;
    const std::string own = ProgramLink("/proc/self/exe");
    const std::string restored = WithoutFolder(searchPath, own.substr(0, own.rfind('/')));
    if (restored.empty())
        unsetenv("PATH");
    else
        setenv("PATH", restored.c_str(), 1);
}

void RestoreStackLimit(size_t argumentBytes) {
    const char* const text = std::getenv(kStackLimit);
    if (text == nullptr) return;
    const rlim_t before = std::strtoull(text, nullptr, 10);
    unsetenv(kStackLimit);
    rlimit limit;
    // The kernel allows a quarter of the limit, but at least 128 KiB. One page is left for the
    // program's own path.
    const rlim_t room = std::max<rlim_t>(before / 4, 128 * 1024) - 4096;
    if (argumentBytes + EnvironmentBytes() > room || getrlimit(RLIMIT_STACK, &limit) != 0) return;
    limit.rlim_cur = std::min(before, limit.rlim_max);
    setrlimit(RLIMIT_STACK, &limit);
}

}  // namespace dunvey
