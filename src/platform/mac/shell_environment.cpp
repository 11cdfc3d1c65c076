#include "platform/processes/shell_environment.h"

namespace dunvey {

std::vector<std::string> ShellEnvironment() {
    return EnvironmentWithPath("/usr/bin:/bin:/usr/sbin:/sbin");
}

}  // namespace dunvey
