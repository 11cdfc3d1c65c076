#include "platform/processes/apple_script.h"

namespace dunvey {

std::string ScriptRunner() {
    return "/usr/bin/osascript";
}

}  // namespace dunvey
