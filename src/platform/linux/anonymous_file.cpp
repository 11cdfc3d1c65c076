#include "platform/files/anonymous_file.h"

#include <sys/mman.h>

namespace dunvey {

FileDescriptor MakeAnonymousFile() {
    return FileDescriptor(Uninterrupted([] { return memfd_create("command", MFD_CLOEXEC); }));
}

}  // namespace dunvey
