#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// Where the files of an application lie.
struct ApplicationFiles {
    /// In `folder`, which need not exist.
    ApplicationFiles(const std::string& folder, const std::string& name);

    std::string bundle;
    std::string contents;
    std::string programs;
    std::string resources;
    std::string propertyList;
    std::string wrapper;
    std::string icon;
};

/// What the files hold. Without an icon, the one that is there stays.
struct ApplicationContents {
    std::string name;
    std::string version;
    std::vector<std::string> command;
    std::string icon;
};

/// Whether something has the path, a link that leads nowhere too.
bool IsThere(const std::string& path);

/// Whether it is a folder itself, no link to one.
bool IsFolder(const std::string& path);

/// Makes the folder if it isn't there. Raises Refusal.
void MakeFolder(const std::string& path);

/// Writes all files, making folders that are missing. Each file is put in place whole. Raises
/// Refusal.
void WriteApplication(const ApplicationFiles& files, const ApplicationContents& contents);

/// Removes the files, and the folders that are empty then, up to the bundle's; the property list,
/// which says who made them, goes last. Returns false if the bundle stays since it holds something
/// else. Raises Refusal.
bool RemoveApplication(const ApplicationFiles& files);

/// Removes a folder if it is empty. Returns false if it isn't. Raises Refusal.
bool RemoveEmptyFolder(const std::string& path);

}  // namespace dunvey
