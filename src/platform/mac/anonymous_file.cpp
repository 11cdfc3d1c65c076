#include "platform/files/anonymous_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string>

namespace dunvey {

FileDescriptor MakeAnonymousFile(std::string_view contents) {
    char folder[PATH_MAX];
    const size_t length = confstr(_CS_DARWIN_USER_TEMP_DIR, folder, sizeof folder);
    std::string path = length > 0 && length <= sizeof folder ? folder : "/tmp/";
    path += "dunvey.XXXXXX";
    FileDescriptor file(Uninterrupted([&path] { return mkostemp(path.data(), O_CLOEXEC); }));
    if (!file) return file;
    unlink(path.c_str());
    const int error = WriteFully(file.Get(), contents);
    if (error != 0 || lseek(file.Get(), 0, SEEK_SET) != 0) {
        errno = error != 0 ? error : errno;
        return FileDescriptor();
    }
    return file;
}

}  // namespace dunvey
