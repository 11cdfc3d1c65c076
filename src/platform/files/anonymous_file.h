#pragma once

#include "platform/files/file_descriptor.h"

namespace dunvey {

/// Creates an empty file without a name. It is deleted with its last descriptor. None on failure,
/// with errno set.
FileDescriptor MakeAnonymousFile();

}  // namespace dunvey
