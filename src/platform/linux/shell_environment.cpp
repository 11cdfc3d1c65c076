#include "platform/processes/shell_environment.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/loop/application.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

constexpr const char* kStandardPath = "/usr/local/bin:/usr/bin:/bin";

/// The folder as an entry of PATH. A colon in its path would end the entry, so such a folder is
/// named by a descriptor, which stays open for as long as the process runs.
std::string PathEntry(const std::string& folder) {
    if (folder.find(':') == folder.npos) return folder;
    static const int kDescriptor = open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    return "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(kDescriptor);
}

/// The Helpers folder as an entry of PATH.
std::string HelpersEntry() {
    const Ref<FolderItem> contents = Application::ExecutableFile()->Parent()->Parent();
    const std::string folder = contents->Child("Helpers")->NativePath();
    const std::string entry = PathEntry(folder);
    for (const char* name : {"open", "osascript", "ps"}) {
        if (access((entry + "/" + name).c_str(), X_OK) == 0) continue;
        throw RuntimeException("Dunvey's own program \"" + folder + "/" + name +
                               "\" is missing. Install Dunvey again.");
    }
    return entry;
}

}  // namespace

std::vector<std::string> ShellEnvironment() {
    const char* const inherited = std::getenv("PATH");
    return EnvironmentWithPath(HelpersEntry() + ":" +
                               (inherited != nullptr ? inherited : kStandardPath));
}

}  // namespace dunvey
