#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace dunvey {

/// What changes with a folder's contents. Times are nanoseconds since 1970.
struct FileStamp {
    uint64_t device = 0;
    uint64_t inode = 0;
    int64_t modified = 0;
    int64_t changed = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// The stamp of what the path leads to; none if it leads to nothing.
std::optional<FileStamp> StampOf(const std::string& path);

}  // namespace dunvey
