#include "platform/files/anonymous_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <string>

namespace dunvey {

FileDescriptor MakeAnonymousFile() {
    char folder[PATH_MAX];
    const size_t length = confstr(_CS_DARWIN_USER_TEMP_DIR, folder, sizeof folder);
    std::string path = length > 0 && length <= sizeof folder ? folder : "/tmp/";
    path += "dunvey.XXXXXX";
    FileDescriptor file(Uninterrupted([&path] { return mkostemp(path.data(), O_CLOEXEC); }));
    if (file) unlink(path.c_str());
    return file;
}

}  // namespace dunvey
