#include "platform/processes/script_runner.h"

namespace dunvey {

std::string ScriptRunner() {
    return "/bin/sh";
}

}  // namespace dunvey
