#pragma once

#include <cstdint>

namespace dunvey::SystemInformationMBS {

/// The first two numbers of the operating system's version. Linux reports 10.14, the newest that
/// the program runs on.
int64_t MacMajorVersion();
int64_t MacMinorVersion();

}  // namespace dunvey::SystemInformationMBS
