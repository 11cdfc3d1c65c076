#include "platform/files/file_stamp.h"

#include <sys/stat.h>

namespace dunvey {
namespace {

int64_t Nanoseconds(const timespec& time) {
    return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

std::optional<FileStamp> StampOf(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return std::nullopt;
    return FileStamp{static_cast<uint64_t>(status.st_dev), status.st_ino,
                     Nanoseconds(status.st_mtimespec), Nanoseconds(status.st_ctimespec)};
}

}  // namespace dunvey
