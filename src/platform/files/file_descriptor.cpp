#include "platform/files/file_descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dunvey {

int FileDescriptor::Close() {
    const int number = std::exchange(number_, -1);
    if (number < 0 || close(number) == 0) return 0;
    return errno == EINTR ? 0 : errno;
}

FileDescriptor OpenFile(const std::string& path, int flags, mode_t mode) {
    return FileDescriptor(
        Uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

FileDescriptor OpenRegularFile(const std::string& path, int& error, int flags) {
    FileDescriptor file = OpenFile(path, flags | O_NONBLOCK | O_NOCTTY, 0666);
    struct stat status;
    if (!file || fstat(file.Get(), &status) != 0) {
        error = errno;
        return FileDescriptor();
    }
    error = S_ISREG(status.st_mode) ? 0 : S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    if (error != 0) return FileDescriptor();
    return file;
}

ssize_t ReadFully(int descriptor, char* buffer, size_t count) {
    size_t done = 0;
    while (done < count) {
        const ssize_t got =
            Uninterrupted([&] { return read(descriptor, buffer + done, count - done); });
        if (got < 0) return -1;
        if (got == 0) break;
        done += static_cast<size_t>(got);
    }
    return static_cast<ssize_t>(done);
}

int WriteFully(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written =
            Uninterrupted([&] { return write(descriptor, bytes.data(), bytes.size()); });
        if (written < 0) return errno;
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    return 0;
}

}  // namespace dunvey
