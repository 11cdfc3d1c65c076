#pragma once

#include <string_view>

#include "platform/files/file_descriptor.h"

namespace dunvey {

/// A file that no folder holds, with the given contents, at its beginning; it is gone with its last
/// descriptor, however the program ends. None on failure, with errno set.
FileDescriptor MakeAnonymousFile(std::string_view contents);

}  // namespace dunvey
