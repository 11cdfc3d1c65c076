#include "platform/files/special_folder.h"

#include <sys/stat.h>

#include <cstdlib>
#include <string>

#include "platform/files/path.h"
#include "platform/linux/applications_folder.h"

namespace dunvey::SpecialFolder {
namespace {

/// Makes the folder and its parents. A failure shows when the folder is used.
void MakeFolders(const std::string& path) {
    for (size_t end = 0; end != std::string::npos;) {
        end = path.find('/', end + 1);
        mkdir(path.substr(0, end).c_str(), 0700);
    }
}

}  // namespace

Ref<FolderItem> Applications() {
    return New<FolderItem>(ApplicationsPath());
}

Ref<FolderItem> ApplicationData() {
    // XDG base directories: a relative path is ignored, and missing folders get the mode 0700.
    const char* configuration = std::getenv("XDG_CONFIG_HOME");
    const bool isGiven = configuration != nullptr && configuration[0] == '/';
    Ref<FolderItem> folder = New<FolderItem>(isGiven ? configuration : HomePath() + "/.config");
    if (!folder->Exists()) MakeFolders(folder->NativePath());
    return folder;
}

}  // namespace dunvey::SpecialFolder
