#include "platform/files/folder_listing.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <memory>

namespace dunvey {
namespace {

// File times move in steps of up to 10 ms: a change right after the reading can leave the same
// stamp.
constexpr int64_t kClockStep = 20'000'000;

int64_t Now() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

struct DirectoryCloser {
    void operator()(DIR* directory) const { closedir(directory); }
};

/// Reads the names as far as that goes. Returns 0 or the errno.
int ReadNames(const std::string& folder, std::vector<std::string>& names) {
    names.clear();
    const std::unique_ptr<DIR, DirectoryCloser> directory(opendir(folder.c_str()));
    if (!directory) return errno;
    errno = 0;
    while (const dirent* entry = readdir(directory.get())) {
        std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(std::move(name));
        errno = 0;
    }
    const int error = errno;
    std::sort(names.begin(), names.end());
    return error;
}

bool LeadsNowhere(int error) {
    return error == ENOENT || error == ENOTDIR;
}

}  // namespace

const std::vector<std::string>& FolderListing::Names(const std::string& folder) {
    const std::optional<FileStamp> stamp = StampOf(folder);
    if (stamp && stamp == stamp_) return names_;
    // Nobody can set the time of the change, but the clock itself may have been set back since.
    const bool settled = stamp && std::abs(Now() - stamp->changed) > kClockStep;
    int error = ReadNames(folder, names_);
    // What hinders the reading is often over at once, and an application that is missed here costs
    // the user a question.
    if (error != 0 && !LeadsNowhere(error)) error = ReadNames(folder, names_);
    stamp_ = settled && error == 0 ? stamp : std::nullopt;
    return names_;
}

}  // namespace dunvey
