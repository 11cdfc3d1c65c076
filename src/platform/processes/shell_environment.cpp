#include "platform/processes/shell_environment.h"

#include <string_view>

#include "platform/processes/launch_loop.h"
#include "platform/processes/process_setup.h"

namespace dunvey {
namespace {

constexpr std::string_view kPath = "PATH=";
/// A function exported by an interactive bash would take precedence over the program of its name.
constexpr std::string_view kFunction = "BASH_FUNC_";
constexpr std::string_view kMark = "DUNVEY_OPENING=";

}  // namespace

std::vector<std::string> EnvironmentWithPath(const std::string& path) {
    std::vector<std::string> environment;
    for (std::string& variable : StartEnvironment()) {
        if (!variable.starts_with(kPath) && !variable.starts_with(kFunction) &&
            !variable.starts_with(kMark)) {
            environment.push_back(std::move(variable));
        }
    }
    environment.push_back(std::string(kPath) + path);
    environment.push_back(OpeningMark());
    return environment;
}

}  // namespace dunvey
