#pragma once

#include <string_view>

#include "platform/files/file_descriptor.h"

namespace dunvey {

/// Creates a file without a name that holds `contents`, positioned at its start. It is deleted with
/// its last descriptor. None on failure, with errno set.
FileDescriptor MakeAnonymousFile(std::string_view contents);

}  // namespace dunvey
