#include <sys/auxv.h>

#include "platform/processes/process_setup.h"

namespace dunvey {

bool HasRaisedPrivileges() {
    return getauxval(AT_SECURE) != 0;
}

}  // namespace dunvey
