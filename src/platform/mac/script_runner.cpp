#include "platform/processes/script_runner.h"

namespace dunvey {

std::string ScriptRunner() {
    return "/usr/bin/osascript";
}

}  // namespace dunvey
