#include "platform/shell_environment.h"

#include <unistd.h>

#include "platform/application.h"

namespace dunvey {
namespace {

constexpr std::string_view kPath = "PATH=";
constexpr const char* kUsualPath = "/usr/local/bin:/usr/bin:/bin";

}  // namespace

std::vector<std::string> ShellEnvironment() {
    const std::string executable = Application::ExecutableFile()->NativePath();
    const std::string folder = executable.substr(0, executable.rfind('/'));
    const std::string helpers = folder.substr(0, folder.rfind('/')) + "/Helpers";
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
    environment.push_back(std::string(kPath) + helpers + ":" + path);
    return environment;
}

}  // namespace dunvey
