#include "platform/processes/shell_environment.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <string_view>
#include <utility>

#include "platform/loop/application.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

constexpr std::string_view kPath = "PATH=";
constexpr const char* kUsualPath = "/usr/local/bin:/usr/bin:/bin";
/// What an interactive shell hands on as functions comes ahead of every program of the name.
constexpr std::string_view kFunction = "BASH_FUNC_";

Ref<FolderItem> HelpersFolder() {
    return Application::ExecutableFile()->Parent()->Parent()->Child("Helpers");
}

/// The Helpers folder as an entry of PATH, where a colon in its own path would end it: by the
/// descriptor of the open folder then, which stays for as long as this process does.
std::string PathEntry(const std::string& path) {
    if (path.find(':') == path.npos) return path;
    static int folder = -1;
    if (folder < 0) folder = open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    return "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(folder);
}

/// Whether every helper is there, which is said once if not.
bool IsComplete(const std::string& entry, const std::string& folder) {
    static bool isSaid = false;
    for (const char* name : {"open", "osascript", "ps"}) {
        if (access((entry + "/" + name).c_str(), X_OK) == 0) continue;
        if (!std::exchange(isSaid, true)) {
            std::fprintf(stderr,
                         "Dunvey: its program \"%s/%s\" is missing. Install Dunvey again.\n",
                         folder.c_str(), name);
        }
        return false;
    }
    return true;
}

/// The search path with the helpers ahead of it; empty if one is missing.
std::string SearchPath(const std::string& inherited) {
    try {
        const std::string folder = HelpersFolder()->NativePath();
        const std::string entry = PathEntry(folder);
        return IsComplete(entry, folder) ? entry + ":" + inherited : std::string();
    } catch (const IOException& failure) {
        std::fprintf(stderr, "Dunvey: its helpers can't be found: %s\n", failure.Message.c_str());
        return {};
    }
}

}  // namespace

std::vector<std::string> ShellEnvironment() {
    std::vector<std::string> environment;
    std::string path = kUsualPath;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view variable = *entry;
        if (variable.starts_with(kPath)) {
            path = variable.substr(kPath.size());
        } else if (!variable.starts_with(kFunction)) {
            environment.emplace_back(variable);
        }
    }
    path = SearchPath(path);
    if (path.empty()) return {};
    environment.push_back(std::string(kPath) + path);
    return environment;
}

}  // namespace dunvey
