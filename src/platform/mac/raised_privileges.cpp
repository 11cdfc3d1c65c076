#include <unistd.h>

#include "platform/processes/process_setup.h"

namespace dunvey {

bool HasRaisedPrivileges() {
    return issetugid() != 0;
}

}  // namespace dunvey
