#include "platform/processes/system_information.h"

#include <sys/sysctl.h>

#include <string>

#include "platform/text/text.h"

namespace dunvey::SystemInformationMBS {
namespace {

/// A part of the version, such as "10.14.6"; 1 is the first.
int64_t VersionPart(int64_t number) {
    char version[32];
    size_t size = sizeof version;
    // The name exists since 10.13.4. The program needs macOS 10.13.
    const bool isKnown = sysctlbyname("kern.osproductversion", version, &size, nullptr, 0) == 0;
    return static_cast<int64_t>(Val(NthField(isKnown ? version : "10.13", ".", number)));
}

}  // namespace

int64_t MacMajorVersion() {
    return VersionPart(1);
}

int64_t MacMinorVersion() {
    return VersionPart(2);
}

}  // namespace dunvey::SystemInformationMBS
