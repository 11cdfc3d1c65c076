#include "platform/files/special_folder.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "platform/files/file_descriptor.h"

namespace dunvey::SpecialFolder {
namespace {

bool IsAbsolute(const char* path) {
    return path != nullptr && path[0] == '/';
}

std::string Home() {
    const char* home = std::getenv("HOME");
    if (IsAbsolute(home)) return home;
    const passwd* user = getpwuid(getuid());
    return user != nullptr && IsAbsolute(user->pw_dir) ? user->pw_dir : "/";
}

/// Makes the folder with all those above it. Where that fails, whoever uses it will see.
void MakeFolders(const std::string& path) {
    for (size_t end = 0; end != std::string::npos;) {
        end = path.find('/', end + 1);
        Uninterrupted([&] { return mkdir(path.substr(0, end).c_str(), 0700); });
    }
}

}  // namespace

Ref<FolderItem> Applications() {
    Ref<FolderItem> system = New<FolderItem>("/Applications");
    return system->Directory() ? system : New<FolderItem>(Home() + "/Applications");
}

Ref<FolderItem> ApplicationData() {
    // The XDG base directory rules: a relative path is to be ignored, and what is missing is made
    // for the user alone.
    const char* configuration = std::getenv("XDG_CONFIG_HOME");
    Ref<FolderItem> folder =
        New<FolderItem>(IsAbsolute(configuration) ? configuration : Home() + "/.config");
    if (!folder->Exists()) MakeFolders(folder->NativePath());
    return folder;
}

std::vector<std::string> ApplicationsPaths() {
    std::vector<std::string> paths = {Applications()->NativePath()};
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(paths[0].c_str(), nullptr),
                                                               &std::free);
    if (resolved && paths[0] != resolved.get()) paths.emplace_back(resolved.get());
    return paths;
}

}  // namespace dunvey::SpecialFolder
