#include "platform/processes/system_information.h"

namespace dunvey::SystemInformationMBS {

int64_t MacMajorVersion() {
    return 10;
}

int64_t MacMinorVersion() {
    return 14;
}

}  // namespace dunvey::SystemInformationMBS
