#include "platform/files/anonymous_file.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>

namespace dunvey {

FileDescriptor MakeAnonymousFile(std::string_view contents) {
    FileDescriptor file(Uninterrupted([] { return memfd_create("command", MFD_CLOEXEC); }));
    if (!file) return file;
    const int error = WriteFully(file.Get(), contents);
    if (error != 0 || lseek(file.Get(), 0, SEEK_SET) != 0) {
        errno = error != 0 ? error : errno;
        return FileDescriptor();
    }
    return file;
}

}  // namespace dunvey
