#include "platform/files/file_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

#include "platform/files/file_descriptor.h"

namespace dunvey {
namespace {

int CopyBytes(int from, int to) {
    std::array<char, 65536> block;
    for (;;) {
        const ssize_t got = ReadFully(from, block.data(), block.size());
        if (got < 0) return errno;
        if (got == 0) return 0;
        const int error = WriteFully(to, {block.data(), static_cast<size_t>(got)});
        if (error != 0) return error;
    }
}

}  // namespace

int CopyFile(const std::string& source, const std::string& target) {
    int error = 0;
    FileDescriptor from = OpenRegularFile(source, error);
    if (!from) return error;
    struct stat status;
    if (fstat(from.Get(), &status) != 0) return errno;
    FileDescriptor to =
        OpenFile(target, O_WRONLY | O_CREAT | O_EXCL, status.st_mode & static_cast<mode_t>(0777));
    if (!to) return errno;
    error = CopyBytes(from.Get(), to.Get());
    const int closing = to.Close();
    if (error == 0) error = closing;
    if (error != 0) Uninterrupted([&] { return unlink(target.c_str()); });
    return error;
}

int CopyFileOrLink(const std::string& source, const std::string& target) {
    char path[PATH_MAX];
    const ssize_t length = readlink(source.c_str(), path, sizeof path - 1);
    if (length < 0) return CopyFile(source, target);
    path[length] = '\0';
    return symlink(path, target.c_str()) == 0 ? 0 : errno;
}

}  // namespace dunvey
