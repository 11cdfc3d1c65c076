#include "platform/processes/apple_script.h"

namespace dunvey {

std::string ScriptRunner() {
    return "/bin/sh";
}

}  // namespace dunvey
