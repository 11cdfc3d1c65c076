#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/values/reference.h"

namespace dunvey {

/// A file or folder by its absolute path. It need not exist. Links are followed, except by Exists,
/// Directory, Count and CopyFileTo of an item from TrueItem.
class FolderItem : public Object {
 public:
    /// A relative path starts at the current directory. ".." isn't resolved.
    explicit FolderItem(std::string path);

    /// The last path component with its extension; "/" for the root.
    std::string Name() const;
    /// Whether there is something at the path. Also true if that can't be determined (such as no
    /// permission for a parent folder): using the item then fails, and nothing is skipped silently.
    bool Exists() const;
    bool Directory() const;
    /// The number of entries of a folder, 0 if it can't be read. Reads the folder, except between
    /// the first and the last entry of a TrueItem loop, where the listing is reused.
    int64_t Count() const;
    /// The folder that holds the item; nil for the root.
    Ref<FolderItem> Parent() const;
    /// The absolute path.
    const std::string& NativePath() const { return path_; }
    /// The absolute path as one word of a POSIX shell.
    std::string ShellPath() const;
    /// The item of that name in this folder; it need not exist.
    Ref<FolderItem> Child(const std::string& name) const;
    /// The entry at a 1-based position, in byte order of the names, of the listing that Count read
    /// last; nil outside it. The entry may have been removed since.
    Ref<FolderItem> TrueItem(int64_t position) const;

    // On failure the following three set LastErrorCode.

    /// Copies a file to `destination`: a new file, or a folder in which to put the copy. An
    /// existing file is not replaced.
    void CopyFileTo(const FolderItem& destination) const;
    /// Creates the folder, not its parents.
    void CreateAsFolder() const;
    /// Removes a file, a link or an empty folder.
    void Delete() const;
    /// The errno of the last CopyFileTo, CreateAsFolder or Delete; 0 after success.
    int LastErrorCode() const { return lastErrorCode_; }

 private:
    std::string path_;
    bool followsLinks_ = true;
    mutable int lastErrorCode_ = 0;
    /// The listing, and the position that TrueItem returned last; 0 for none.
    mutable std::vector<std::string> names_;
    mutable size_t walked_ = 0;
};

/// The item's POSIX path, without escaping.
std::string UnixpathMBS(const FolderItem& item);

/// Any text as one word of a POSIX shell. No other function makes shell words.
std::string ShellWord(const std::string& text);

/// The same in single quotes.
std::string QuotedShellWord(const std::string& text);

}  // namespace dunvey
