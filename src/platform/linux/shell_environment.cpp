#include "platform/shell_environment.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "platform/application.h"
#include "platform/exceptions.h"
#include "platform/file_descriptor.h"

namespace dunvey {
namespace {

constexpr std::string_view kPath = "PATH=";
constexpr const char* kUsualPath = "/usr/local/bin:/usr/bin:/bin";

/// The Helpers folder as an entry of PATH, where a colon in its own path would end it: by the
/// descriptor of the open folder then, which stays for as long as this process does.
std::string PathEntry(const Ref<FolderItem>& helpers) {
    const std::string& path = helpers->NativePath();
    if (path.find(':') == path.npos) return path;
    static const FileDescriptor folder(open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    return "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(folder.Get());
}

/// Looked up once. Without the helpers nothing can be listed or started, so that is said.
const std::string& Helpers() {
    static const std::string entry = []() -> std::string {
        try {
            const Ref<FolderItem> helpers =
                Application::ExecutableFile()->Parent()->Parent()->Child("Helpers");
            if (helpers->Exists()) return PathEntry(helpers) + ":";
            std::fprintf(stderr, "Dunvey: its folder \"%s\" is missing. Install Dunvey again.\n",
                         helpers->NativePath().c_str());
        } catch (const IOException& failure) {
            std::fprintf(stderr, "Dunvey: its helpers can't be found: %s\n",
                         failure.Message.c_str());
        }
        return {};
    }();
    return entry;
}

}  // namespace

std::vector<std::string> ShellEnvironment() {
    std::vector<std::string> environment;
    std::string path = kUsualPath;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view variable = *entry;
        if (variable.starts_with(kPath)) {
            path = variable.substr(kPath.size());
        } else {
            environment.emplace_back(variable);
        }
    }
    environment.push_back(std::string(kPath) + Helpers() + path);
    return environment;
}

}  // namespace dunvey
