#include "platform/linux/helpers/folder_names.h"

#include <dirent.h>

#include <cerrno>

namespace dunvey {

std::optional<std::vector<std::string>> FolderNames(const std::string& path) {
    DIR* const folder = opendir(path.c_str());
    if (folder == nullptr) return std::nullopt;
    std::vector<std::string> names;
    errno = 0;
    while (const dirent* entry = readdir(folder)) {
        if (entry->d_name[0] != '.') names.emplace_back(entry->d_name);
    }
    const bool isComplete = errno == 0;
    closedir(folder);
    if (!isComplete) return std::nullopt;
    return names;
}

}  // namespace dunvey
