#include "platform/folder_listing.h"

#include <dirent.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>

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

std::vector<std::string> ReadNames(const std::string& folder) {
    std::vector<std::string> names;
    DIR* directory = opendir(folder.c_str());
    if (directory == nullptr) return names;
    while (const dirent* entry = readdir(directory)) {
        std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(std::move(name));
    }
    closedir(directory);
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

const std::vector<std::string>& FolderListing::Names(const std::string& folder) {
    const std::optional<FileStamp> stamp = StampOf(folder);
    if (stamp && stamp == stamp_) return names_;
    // Nobody can set the time of the change, but the clock itself may have been set back since.
    const bool settled = stamp && std::abs(Now() - stamp->changed) > kClockStep;
    stamp_ = settled ? stamp : std::nullopt;
    names_ = stamp ? ReadNames(folder) : std::vector<std::string>();
    return names_;
}

}  // namespace dunvey
